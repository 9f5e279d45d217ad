#include "UnsavedWorkQuestion.h"

#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <memory>
#include <system_error>

#include "DifferenceSentences.h"
#include "ErrorReport.h"
#include "KeptWork.h"
#include "Paths.h"
#include "ShowMessage.h"
#include "StoppedSave.h"
#include "UnsavedWork.h"
#include "WholeFile.h"
#include "WorkKeeper.h"

namespace vtr {

namespace {

enum class Answer { TakeBack, KeepForLater, ThrowAway };

constexpr std::size_t mostMebibytes = 16;

QString Question(const UnsavedWork &work, const std::string &differences, const Session &session) {
    QStringList changed;
    for (const std::string &file : FilesChangedSince(work, session.fileStamps))
        changed << QString::fromStdString(file);
    QString text;
    if (!changed.isEmpty() &&
        FilesOfStoppedSave(VersionsFolderOf(session.dataFolder, session.campaign.paths)))
        text = QObject::tr("The last save of this project stopped half way. ");
    if (!changed.isEmpty())
        text += QObject::tr("The project's files have been changed since: %1. ")
                    .arg(changed.join(QStringLiteral(", ")));
    const QString when = QLocale::c().toString(QDateTime::fromSecsSinceEpoch(work.keptAt),
                                               QStringLiteral("d MMMM yyyy, HH:mm"));
    return text + QObject::tr("There is unsaved work of %1: %2. Take it back?")
                      .arg(when, QString::fromStdString(differences));
}

Answer Ask(const QString &question, QWidget *window) {
    QMessageBox box(QMessageBox::Question, programTitle, question, QMessageBox::NoButton, window);
    box.setTextFormat(Qt::PlainText);
    // Of one role they stand in this order in every style.
    const auto add = [&box](const QString &text) { return box.addButton(text, QMessageBox::ActionRole); };
    QPushButton *const takeBack = add(QObject::tr("Take Back"));
    QPushButton *const keep = add(QObject::tr("Keep for Later"));
    QPushButton *const throwAway = add(QObject::tr("Throw Away"));
    box.setDefaultButton(takeBack);
    box.setEscapeButton(keep);
    box.exec();
    return box.clickedButton() == takeBack    ? Answer::TakeBack
           : box.clickedButton() == throwAway ? Answer::ThrowAway
                                              : Answer::KeepForLater;
}

void TellOfUnreadable(const Error &error, const QString &consequence, QWidget *window) {
    ShowMessage(
        window, QMessageBox::Warning,
        ErrorReport(QObject::tr("Reading the unsaved work"), error,
                    QObject::tr("The project is loaded, and nothing else is affected. ") + consequence));
}

void Remove(const std::string &path) {
    std::error_code ignored;
    std::filesystem::remove(FilesystemPath(path), ignored);
}

/// Reads the file into tables. Tells of it when it cannot be read; nothing is given back then.
std::optional<UnsavedWork> Read(const std::string &path, Campaign &tables, QWidget *window) {
    Bytes bytes;
    try {
        bytes = ReadFileOfAtMost(mostMebibytes, path);
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::FileMissing)  // else another editor has just taken it back
            TellOfUnreadable(error, QObject::tr("Put right what is said above, then load the project again."),
                             window);
        return std::nullopt;
    }
    try {
        return DecodeUnsavedWork(bytes, path, tables);
    } catch (const Error &error) {
        if (IsOfAnotherVersion(bytes))
            TellOfUnreadable(
                error,
                QObject::tr("To take these edits back, load the project in the version of the editor "
                            "that wrote them."),
                window);
        else
            TellOfUnreadable(
                error,
                QObject::tr("The edits in it cannot be taken back. It is now kept as %1; remove it "
                            "when you do not need it.")
                    .arg(QString::fromStdString(SetAside(path))),
                window);
    }
    return std::nullopt;
}

/// True when the work was taken back.
bool Offer(const std::string &path, Session &session, WorkKeeper &keeper, QWidget *window) {
    const auto tables = std::make_unique<Campaign>(session.campaign);
    const std::optional<UnsavedWork> work = Read(path, *tables, window);
    if (!work)
        return false;
    const Differences differences = DifferencesOf(session.campaign, *tables);
    const std::string summary = SummaryOf(differences);
    if (summary.empty()) {
        Remove(path);
        return false;
    }
    switch (Ask(Question(*work, summary, session), window)) {
        case Answer::TakeBack:
            session.TakeOver("Take Back Unsaved Work", differences);
            keeper.KeepInsteadOf(path);
            return true;
        case Answer::ThrowAway:
            Remove(path);
            return false;
        case Answer::KeepForLater:
            return false;
    }
    return false;
}

}  // namespace

void OfferUnsavedWork(Session &session, WorkKeeper &keeper, QWidget *window,
                      const std::function<void()> &show) {
    if (session.dataFolder.empty())
        return;
    keeper.Wait();
    for (const std::string &path : AbandonedWork(session.dataFolder, session.tablesProject))
        // A second one would overwrite what the first has brought back: it stays for later.
        if (Offer(path, session, keeper, window))
            return show();
}

}  // namespace vtr
