#pragma once

#include <QApplication>
#include <functional>

#include "Session.h"

namespace vtr {

/// The application object. What its events throw is not recovered from: it is shown in one message, and the
/// program ends with exit status 1.
class EventBoundary : public QApplication {
    Q_OBJECT

  public:
    EventBoundary(int &argc, char **argv, const Session &session);

    /// When a load fails over an open campaign, which is whole then, the report offers to save its files
    /// before the program ends; closeWindow is called at that end.
    void OfferSavingFirst(std::function<void()> saveFiles, std::function<void()> closeWindow);

    bool notify(QObject *receiver, QEvent *event) override;

  private:
    void Fail(const QString &report);
    void ShowReport(const QString &report);

    const Session &session_;
    std::function<void()> saveFiles_;
    std::function<void()> closeWindow_;
    bool reporting_ = false;  ///< one message is enough
};

}  // namespace vtr
