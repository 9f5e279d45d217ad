#include "SaveCommands.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QWindow>

#include "ErrorReport.h"
#include "GridData.h"
#include "ProgramVersion.h"
#include "ShowMessage.h"
#include "StatusBar.h"
#include "StoppedSave.h"
#include "Text.h"
#include "frm_save.h"

namespace vtr {

namespace {

QStringList TextsOf(const std::vector<std::string_view> &captions) {
    QStringList texts;
    for (const std::string_view caption : captions)
        texts << QString::fromUtf8(caption);
    return texts;
}

QString JoinedCaptions(const std::vector<std::string_view> &captions) {
    return captions.empty() ? QStringLiteral("none") : TextsOf(captions).join(QStringLiteral(", "));
}

/// "TARGET.DAT, TARNAMES.STR and VTR_RRD.DAT", for more than one.
QString ListOf(const std::vector<std::string_view> &captions) {
    QStringList texts = TextsOf(captions);
    const QString last = texts.takeLast();
    return texts.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

std::string PathOfProject(const ProjectPaths &paths) {
    return paths.ProjectDir + paths.ProjectFile;
}

}  // namespace

SaveCommands::SaveCommands(Session &session, MainWidgets &widgets, QMainWindow *window)
    : QObject(window), session_(session), widgets_(widgets), window_(window) {
    connect(widgets.menu.mnu_p_export, &QAction::triggered, this, &SaveCommands::Show);
}

bool SaveCommands::IsShown() const {
    return frm_save_ != nullptr && frm_save_->isVisible();
}

void SaveCommands::Show() {
    if (!IsShown())
        Prepare();
    frm_save_->show();
    frm_save_->raise();
    frm_save_->activateWindow();
}

bool SaveCommands::ShowAndWait() {
    // A dialog that is shown already would not become modal.
    if (IsShown())
        frm_save_->hide();
    else
        Prepare();
    return frm_save_->exec() == QDialog::Accepted;
}

QWidget *SaveCommands::OpenDialog() const {
    return IsShown() ? frm_save_ : nullptr;
}

void SaveCommands::SetUsableBesideMainWindow(bool usable) {
    // What is modal to a window blocks the dialogs that belong to it too.
    if (frm_save_ != nullptr && frm_save_->windowHandle() != nullptr)
        frm_save_->windowHandle()->setTransientParent(usable ? nullptr : window_->windowHandle());
}

void SaveCommands::ProjectChanged() {
    if (IsShown()) {
        const bool isAnother = shownProject_ != PathOfProject(session_.campaign.paths);
        ShowProject();
        Say(isAnother ? tr("Another project is open now.") : QString());
    }
}

void SaveCommands::EditsChanged() {
    if (IsShown())
        frm_save_->MarkEdited(session_.EditedFiles());
}

void SaveCommands::ShowProject() {
    shownProject_ = PathOfProject(session_.campaign.paths);
    frm_save_->ShowProject(session_.campaign.paths);
    frm_save_->MarkEdited(session_.EditedFiles());
}

void SaveCommands::Say(const QString &text) {
    frm_save_->Say((text + QLatin1Char(' ') + Warning()).trimmed());
}

void SaveCommands::Prepare() {
    if (frm_save_ == nullptr)
        frm_save_ = new frm_save([this](const SaveBoxes &ticked) { return Save(ticked); }, window_);
    frm_save_->Untick();
    ShowProject();
    Say({});
}

QString SaveCommands::Warning() const {
    const std::string project = PathOfProject(session_.campaign.paths);
    if (session_.tablesProject == project)
        return {};
    return tr("The campaign in the editor was loaded from %1. A save writes it over the files of %2.")
        .arg(QString::fromStdString(Shortened(session_.tablesProject, longestShownPath)),
             QString::fromStdString(Shortened(project, longestShownPath)));
}

bool SaveCommands::Save(const SaveBoxes &ticked) {
    Say({});
    if (ticked == SaveBoxes{}) {
        Say(tr("Tick the files to be saved."));
        return false;
    }
    const std::optional<SaveOutcome> saved =
        MayFollowLinks(ticked) ? SaveCampaign(session_, ticked, *this) : std::nullopt;
    if (!saved) {
        Say((tr("Nothing was written. ") + AllEditsAreKept()).trimmed());
        return false;
    }
    const SaveOutcome &outcome = *saved;
    const QString written = JoinedCaptions(outcome.written);
    if (outcome.misfit) {
        ShowMessage(frm_save_, QMessageBox::Warning,
                    QString::fromStdString(MessageOfMisfit(*outcome.misfit)));
        Say(session_.campaign.paths.GridData.empty()
                ? tr("Written: %1. The project names no grid file.").arg(written)
                : tr("Written: %1. GRIDDATA.DAT is still the old one: move target %2 or press \"Reorder "
                     "Targets "
                     "for GRIDDATA.DAT\", then save it again.")
                      .arg(written)
                      .arg(*outcome.misfit));
    }
    if (outcome.failure)
        TellFailure(outcome);
    if (outcome.Succeeded())
        widgets_.sb_status->showMessage(outcome.written.empty()
                                            ? tr("Nothing was written: the editor never writes these files, "
                                                 "or the project does not name them.")
                                            : tr("Saved: %1").arg(written),
                                        5000);
    return outcome.Succeeded();
}

void SaveCommands::TellFailure(const SaveOutcome &outcome) {
    const QString text =
        ErrorReport(tr("Saving the files"), *outcome.failure,
                    tr("Written: %1.\nNot written: %2.\n")
                            .arg(JoinedCaptions(outcome.written), JoinedCaptions(outcome.notWritten)) +
                        AllEditsAreKept() + tr("Put right what is said above, then save again."));
    if (outcome.LeavesMixture())
        WarnOfMixture(frm_save_,
                      text + tr("\n\nUntil then the campaign's files do not belong together: some "
                                "are new and some are old. \"Earlier Versions...\" takes back what "
                                "they were; then save them all."));
    else
        ShowMessage(frm_save_, QMessageBox::Warning, text);
}

void SaveCommands::TellStoppedSave() {
    const ProjectPaths &paths = session_.campaign.paths;
    const auto files = FilesOfStoppedSave(VersionsFolderOf(session_.dataFolder, paths));
    if (!files)
        return;
    const QString names = files->empty()
                              ? tr("all files")
                              : JoinedCaptions(std::vector<std::string_view>(files->begin(), files->end()));
    WarnOfMixture(window_,
                  tr("The last save of this project stopped half way, so the campaign's files do not "
                     "belong together: some are new and some are old.\n\nPerhaps not written: %1.\n\n"
                     "\"Earlier Versions...\" takes back what the files were before; then save them "
                     "all. Or look through the campaign and save these files as they are now. Until "
                     "that is done you are told at every load.")
                      .arg(names));
}

void SaveCommands::WarnOfMixture(QWidget *parent, const QString &text) {
    QMessageBox box(QMessageBox::Warning, programTitle, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton *const versions = box.addButton(tr("&Earlier Versions..."), QMessageBox::ActionRole);
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    box.exec();
    if (box.clickedButton() == versions)
        widgets_.menu.mnu_p_versions->trigger();
}

QString SaveCommands::AllEditsAreKept() const {
    return session_.HasUnsavedEdits() ? tr("All your edits are still in the editor. ") : QString();
}

bool SaveCommands::MayFollowLinks(const SaveBoxes &ticked) {
    for (std::size_t box = 0; box < ticked.size(); ++box) {
        if (!ticked[box])
            continue;
        const SaveBoxFile file = FileOfSaveBox(session_.campaign.paths, box);
        if (file.linkedTo.empty())
            continue;
        if (!AskYesNo(tr("%1 leads to %2. Write there?")
                          .arg(QString::fromStdString(Shortened(file.name)),
                               QString::fromStdString(Shortened(file.linkedTo, longestShownPath)))))
            return false;
    }
    return true;
}

bool SaveCommands::MayOverwrite(const std::vector<std::string_view> &changed) {
    return AskYesNo(changed.size() == 1 ? tr("%1 has been changed by another program since it was loaded. "
                                             "Overwrite it?")
                                              .arg(QString::fromUtf8(changed.front()))
                                        : tr("%1 have been changed by another program since they were "
                                             "loaded. Overwrite them?")
                                              .arg(ListOf(changed)));
}

bool SaveCommands::MaySaveWithoutEarlierVersion(const Error &failure) {
    return AskYesNo(ErrorReport(tr("Keeping the earlier version"), failure,
                                tr("Save without keeping the earlier version?")));
}

bool SaveCommands::AskYesNo(const QString &text) {
    QMessageBox question(QMessageBox::Question, programTitle, text, QMessageBox::Yes | QMessageBox::No,
                         frm_save_);
    question.setTextFormat(Qt::PlainText);
    question.setDefaultButton(QMessageBox::No);
    return question.exec() == QMessageBox::Yes;
}

}  // namespace vtr
