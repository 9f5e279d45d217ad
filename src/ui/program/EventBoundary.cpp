#include "EventBoundary.h"

#include <QPushButton>
#include <QStyleFactory>
#include <exception>
#include <new>
#include <utility>

#include "AtomicWrite.h"
#include "ErrorReport.h"
#include "OutlineStyle.h"
#include "ShowMessage.h"

namespace vtr {

namespace {

/// A load failed, and the campaign that was open before it still is.
bool CampaignIsWhole(const Session &session) {
    return session.loadFailed && session.campaign.ProjectLoaded;
}

QString FateOf(Kept edits) {
    switch (edits) {
        case Kept::Kept:
            return QStringLiteral(
                "Your unsaved edits are kept; the editor offers them when you load the project again. ");
        case Kept::Failed:
            return QStringLiteral(
                "Your unsaved edits could not be kept and are lost; the files that you saved are as you "
                "saved "
                "them. ");
        case Kept::NothingUnsaved:
            break;
    }
    return {};
}

}  // namespace

EventBoundary::EventBoundary(int &argc, char **argv, const Session &session)
    : QApplication(argc, argv), session_(session) {
    LetWritesBeyondTheSizeLimitFail();
    setStyle(new OutlineStyle(QStyleFactory::create(style()->name())));
}

void EventBoundary::OfferSavingFirst(std::function<void()> saveFiles, std::function<void()> closeWindow) {
    saveFiles_ = std::move(saveFiles);
    closeWindow_ = std::move(closeWindow);
}

bool EventBoundary::notify(QObject *receiver, QEvent *event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const Error &error) {
        Fail(ErrorReport(QString::fromStdString(session_.operation), error, EndOfTheProgram()));
    } catch (const std::exception &error) {
        const bool lacksMemory = dynamic_cast<const std::bad_alloc *>(&error) != nullptr;
        Fail(QStringLiteral("%1 failed.\n\n%2\n\n%3")
                 .arg(QString::fromStdString(session_.operation),
                      lacksMemory ? QStringLiteral("There is not enough memory.")
                                  : QString::fromUtf8(error.what()),
                      EndOfTheProgram()));
    }
    return false;
}

Kept EventBoundary::KeepWork() const {
    try {
        return keepWork_();
    } catch (const std::exception &) {  // the report of what came first is what counts
        return Kept::Failed;
    }
}

QString EventBoundary::EndOfTheProgram() const {
    const Kept edits = KeepWork();
    if (CampaignIsWhole(session_) && session_.HasUnsavedEdits())
        return QStringLiteral(
                   "The program ends now. The campaign that was open still is, with all its edits: press "
                   "\"Save "
                   "Files First...\" if you have not saved them.") +
               (edits == Kept::Failed
                    ? QStringLiteral(" They could not be kept: what you do not save now is lost.")
                    : QString());
    return QStringLiteral("The program ends now. ") + FateOf(edits) +
           QStringLiteral("Put right what is said above, if you can, and start it again.");
}

void EventBoundary::Fail(const QString &report) {
    if (reporting_)
        return;
    reporting_ = true;
    // The event that threw is still being handled here: no window may be opened before it has unwound.
    QMetaObject::invokeMethod(
        this,
        [this, report] {
            try {
                ShowReport(report);
            } catch (const std::exception &) {
                // One message is enough; the program ends all the same.
            }
            reporting_ = false;
            QCoreApplication::exit(1);
        },
        Qt::QueuedConnection);
}

void EventBoundary::ShowReport(const QString &report) {
    if (!CampaignIsWhole(session_) || !saveFiles_)
        return ShowMessage(nullptr, QMessageBox::Critical, report);
    QMessageBox box(QMessageBox::Critical, programTitle, report, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const saveFirst =
        box.addButton(QStringLiteral("Save Files First..."), QMessageBox::ActionRole);
    if (session_.HasUnsavedEdits())
        box.setDefaultButton(saveFirst);
    do
        box.exec();
    while (box.clickedButton() == saveFirst && (saveFiles_(), true));
    closeWindow_();
}

}  // namespace vtr
