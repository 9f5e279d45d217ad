#pragma once

#include <QApplication>
#include <functional>

#include "Session.h"
#include "WorkKeeper.h"

namespace vtr {

/// The application object. What its events throw is not recovered from: it is shown in one message, and the
/// program ends with exit status 1.
class EventBoundary : public QApplication {
    Q_OBJECT

  public:
    EventBoundary(int &argc, char **argv, const Session &session);

    /// When a load fails over an open campaign, which is whole then, the report offers to save its unsaved
    /// edits before the program ends; closeWindow is called at that end.
    void OfferSavingFirst(std::function<void()> saveFiles, std::function<void()> closeWindow);

    /// keepWork is called before each report, which tells what became of the unsaved edits.
    void KeepWorkFirst(std::function<Kept()> keepWork) { keepWork_ = std::move(keepWork); }

    bool notify(QObject *receiver, QEvent *event) override;

  private:
    Kept KeepWork() const;
    QString EndOfTheProgram() const;
    void Fail(const QString &report);
    void ShowReport(const QString &report);

    const Session &session_;
    std::function<void()> saveFiles_;
    std::function<void()> closeWindow_;
    std::function<Kept()> keepWork_ = [] { return Kept::NothingUnsaved; };
    bool reporting_ = false;  ///< one message is enough
};

}  // namespace vtr
