#pragma once

#include <QApplication>

#include "Session.h"

namespace vtr {

/// The application object. What its events throw is not recovered from: it is shown in one message, and the
/// program ends with exit status 1.
class EventBoundary : public QApplication {
    Q_OBJECT

  public:
    EventBoundary(int &argc, char **argv, const Session &session);

    bool notify(QObject *receiver, QEvent *event) override;

  private:
    void Fail(const QString &report);

    const Session &session_;
    bool reporting_ = false;  ///< one message is enough
};

}  // namespace vtr
