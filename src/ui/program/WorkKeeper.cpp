#include "WorkKeeper.h"

#include <QCoreApplication>
#include <QDateTime>
#include <chrono>

#include "ErrorReport.h"
#include "UnsavedWork.h"

namespace vtr {

WorkKeeper::WorkKeeper(Session &session, QObject *parent)
    : QObject(parent), session_(session), writer_([this](const std::optional<Error> &failure) {
          QMetaObject::invokeMethod(
              this, [this, failure] { Written(failure); }, Qt::QueuedConnection);
      }) {
    using namespace std::chrono_literals;
    afterLastEdit_.setInterval(2s);
    afterFirstEdit_.setInterval(4s);
    for (QTimer *timer : {&afterLastEdit_, &afterFirstEdit_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { Keep(); });
    }
}

void WorkKeeper::TablesChanged() {
    if (session_.dataFolder.empty())
        return;
    if (session_.HasUnsavedEdits()) {
        afterLastEdit_.start();
        if (!afterFirstEdit_.isActive())
            afterFirstEdit_.start();
        return;
    }
    afterLastEdit_.stop();
    afterFirstEdit_.stop();
    if (std::exchange(isKept_, false))
        writer_.Remove(own_->Path());
    for (const std::string &path : outdated_)
        writer_.Remove(path);
}

void WorkKeeper::KeepInsteadOf(const std::string &path) {
    outdated_.push_back(path);
    Keep();
}

void WorkKeeper::Keep() {
    afterLastEdit_.stop();
    afterFirstEdit_.stop();
    if (session_.dataFolder.empty() || !session_.HasUnsavedEdits())
        return;
    try {
        if (own_ == nullptr)
            own_ = std::make_unique<KeptWork>(session_.dataFolder, session_.tablesProject);
        own_->Mark();
        const UnsavedWork work{own_->Project(), QDateTime::currentSecsSinceEpoch(),
                               StampedFilesOf(session_.fileStamps)};
        writer_.Write(own_->Path(), EncodeUnsavedWork(work, session_.campaign), outdated_);
        isKept_ = true;
    } catch (const Error &error) {
        Written(error);
    }
}

Kept WorkKeeper::KeepAndWait() {
    const bool isUnsaved = session_.HasUnsavedEdits();
    Keep();
    writer_.Wait();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // what the writer has told
    if (session_.dataFolder.empty())
        failure_ = Error(ErrorKind::FileAccess, {}, "a folder of the user's own to keep them in", "none");
    return !isUnsaved ? Kept::NothingUnsaved : failure_ ? Kept::Failed : Kept::Kept;
}

QString WorkKeeper::LossReport(const QString &consequence) const {
    return ErrorReport(tr("Keeping your unsaved edits"), failure_.value(), consequence);
}

void WorkKeeper::LetGo() {
    afterLastEdit_.stop();
    afterFirstEdit_.stop();
    own_.reset();
    isKept_ = false;
    outdated_.clear();
}

void WorkKeeper::Written(const std::optional<Error> &failure) {
    failure_ = failure && !failure->FileReplaced() ? failure : std::nullopt;
    if (failure_)
        afterFirstEdit_.start();
    const bool wasTold = std::exchange(isTold_, failure.has_value());
    if (failure && !wasTold)
        Q_EMIT CannotKeep(
            tr("Your unsaved edits cannot be kept in %1: %2. Save the files, or they are lost when "
               "the editor fails.")
                .arg(QString::fromStdString(session_.dataFolder), QString::fromStdString(failure->Reason())));
}

}  // namespace vtr
