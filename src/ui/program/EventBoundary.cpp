#include "EventBoundary.h"

#include <exception>

#include "ErrorReport.h"
#include "ShowMessage.h"

namespace vtr {

namespace {

QString EndOfTheProgram(const Session &session) {
    QString text = QStringLiteral("The program ends now. ");
    if (session.campaign.ProjectLoaded)
        text += QStringLiteral(
            "Edits that you had not saved, if any, are lost; the files that you saved are as you saved "
            "them. ");
    return text + QStringLiteral("Put right what is said above, if you can, and start it again.");
}

}  // namespace

EventBoundary::EventBoundary(int &argc, char **argv, const Session &session)
    : QApplication(argc, argv), session_(session) {}

bool EventBoundary::notify(QObject *receiver, QEvent *event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const Error &error) {
        Fail(ErrorReport(QString::fromStdString(session_.operation), error, EndOfTheProgram(session_)));
    } catch (const std::exception &error) {
        Fail(QStringLiteral("%1 failed.\n\n%2\n\n%3")
                 .arg(QString::fromStdString(session_.operation), QString::fromUtf8(error.what()),
                      EndOfTheProgram(session_)));
    }
    return false;
}

void EventBoundary::Fail(const QString &report) {
    if (reporting_)
        return;
    reporting_ = true;
    // The event that threw is still being handled here: no window may be opened before it has unwound.
    QMetaObject::invokeMethod(
        this,
        [this, report] {
            ShowMessage(nullptr, QMessageBox::Critical, report);
            reporting_ = false;
            QCoreApplication::exit(1);
        },
        Qt::QueuedConnection);
}

}  // namespace vtr
