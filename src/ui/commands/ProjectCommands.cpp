#include "ProjectCommands.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QStringList>
#include <memory>
#include <new>
#include <utility>

#include "ControlBox.h"
#include "ErrorReport.h"
#include "FileChooser.h"
#include "FrontlinePanel.h"
#include "GameText.h"
#include "GridData.h"
#include "MapFrame.h"
#include "MapLayers.h"
#include "MapPictureFile.h"
#include "Operation.h"
#include "Overview.h"
#include "ProgramVersion.h"
#include "RailwayPanel.h"
#include "ShowMessage.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"
#include "frm_newproject.h"
#include "frm_progress.h"
#include "frm_save.h"

namespace vtr {

namespace {

QString JoinedCaptions(const std::vector<std::string_view> &captions) {
    QStringList texts;
    for (const std::string_view caption : captions)
        texts << QString::fromUtf8(caption);
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral(", "));
}

}  // namespace

ProjectCommands::ProjectCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                 std::function<void()> redraw)
    : QObject(window),
      session_(session),
      widgets_(widgets),
      window_(window),
      redraw_(std::move(redraw)),
      frm_progress_(new frm_progress(window)) {
    const MainMenu &menu = widgets.menu;
    connect(menu.mnu_p_new, &QAction::triggered, this, &ProjectCommands::MakeNewProject);
    connect(menu.mnu_p_load, &QAction::triggered, this, &ProjectCommands::ChooseAndLoad);
    connect(menu.mnu_p_export, &QAction::triggered, this, [this] { ShowSaveDialog(SaveDialogMode::GoOn); });
    for (std::size_t i = 0; i < menu.mnu_p_last.size(); ++i)
        connect(menu.mnu_p_last[i], &QAction::triggered, this, [this, i] { LoadRecent(i); });
}

void ProjectCommands::Load(const std::string &path) {
    const Operation loading(session_.operation, tr("Loading the project"));
    if (const auto refusal = RefusalOfProjectPath(path)) {
        ShowMessage(
            window_, QMessageBox::Warning,
            ErrorReport(QString::fromStdString(session_.operation), *refusal, tr("Nothing was changed.")));
        return;
    }
    LoadProject(path, session_.campaign, *this);
}

bool ProjectCommands::OfferExport(SaveDialogMode mode) {
    if (!session_.campaign.ProjectLoaded)
        return true;
    const auto answer =
        QMessageBox::question(window_, programTitle, QStringLiteral("Do you wish to export this project?"),
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes)
        ShowSaveDialog(mode);
    return answer == QMessageBox::Yes || answer == QMessageBox::No;
}

void ProjectCommands::ChooseAndLoad() {
    if (!OfferExport(SaveDialogMode::GoOn))
        return;
    const std::string chosen = ChooseFile(window_, QFileDialog::AcceptOpen, QStringLiteral("Load Project"),
                                          projectFilter, lastChosenFile_);
    if (chosen.empty())
        return;
    lastChosenFile_ = chosen;
    Load(chosen);
}

void ProjectCommands::LoadDropped(const QString &path) {
    if (OfferExport(SaveDialogMode::GoOn))
        Load(QDir::toNativeSeparators(path).toStdString());
}

void ProjectCommands::LoadRecent(std::size_t index) {
    // A copy: the load itself moves the list.
    const std::string file = session_.preferences.RecentProjectFiles[index];
    if (OfferExport(SaveDialogMode::Wait))
        Load(file);
}

void ProjectCommands::MakeNewProject() {
    const Operation making(session_.operation, tr("Making the new project"));
    frm_newproject dialog(session_.programFolder, window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (!dialog.MapWasGenerated())
        return Load(dialog.ProjectPath());
    // From the generation of the map on, no failure ends the program. What was open stays so: half loaded,
    // the next save would write the tables of the one campaign over the files of the other.
    const auto before = std::make_unique<Session>(session_);
    const QString nameBefore = widgets_.sb_status->project->text();
    try {
        Load(dialog.ProjectPath());
    } catch (const Error &error) {
        CloseProgress();
        session_ = std::move(*before);
        widgets_.sb_status->project->setText(nameBefore);
        widgets_.Img_SmallMap->ShowPicture(session_.map);
        widgets_.ShowState();
        ShowMessage(
            window_, QMessageBox::Warning,
            ErrorReport(
                tr("Loading the new project"), error,
                tr("The project file and the files beside it are made; the map picture may be "
                   "missing. Nothing else was changed. Put right what is said above, then load the new "
                   "project.")));
    }
}

void ProjectCommands::ShowSaveDialog(SaveDialogMode mode) {
    if (auto *open = window_->findChild<frm_save *>(); open != nullptr && mode == SaveDialogMode::GoOn) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto *dialog = new frm_save([this](const SaveBoxes &ticked) { return Save(ticked); }, window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (mode == SaveDialogMode::Wait)
        dialog->exec();
    else
        dialog->show();
}

bool ProjectCommands::Save(const SaveBoxes &ticked) {
    QWidget *dialog = QApplication::activeWindow();
    const QString operation = tr("Saving the files");
    SaveProgress progress;
    bool succeeded = true;
    const auto tellFailure = [&](const Error &error) {
        succeeded = false;
        const QString consequence =
            tr("Written: %1.\nNot written: %2.\nAll your edits are still in the editor. Put right what is "
               "said above, then save again.")
                .arg(JoinedCaptions(progress.written), JoinedCaptions(progress.notWritten));
        ShowMessage(dialog, QMessageBox::Warning, ErrorReport(operation, error, consequence));
    };
    try {
        SaveFiles(session_.campaign, ticked, session_.programFolder, progress, [&](int target) {
            succeeded = false;
            ShowMessage(dialog, QMessageBox::Warning, QString::fromStdString(MessageOfMisfit(target)));
        });
    } catch (const Error &error) {
        tellFailure(error);
    } catch (const std::bad_alloc &) {
        tellFailure(Error(ErrorKind::Overflow, {}, "files that fit into memory", "no memory left"));
    }
    return succeeded;
}

void ProjectCommands::ShowProgress() {
    frm_progress_->setWindowTitle(QStringLiteral("Load Project..."));
    frm_progress_->show();
}

void ProjectCommands::SetProgress(double value) {
    frm_progress_->SetProgress(value);
}

void ProjectCommands::ShowProjectName(const std::string &name) {
    widgets_.sb_status->project->setText(QStringLiteral("  ") + ProjectCaption(name) + QStringLiteral("  "));
}

void ProjectCommands::TellNoMap() {
    ShowMessage(window_, QMessageBox::Information, QStringLiteral("No Map specified. Cannot load project."));
}

void ProjectCommands::CloseProgress() {
    frm_progress_->hide();
}

void ProjectCommands::LoadMapPicture(const std::string &path) {
    overviewPicture_ = ReadMapPicture(path);
    widgets_.Img_SmallMap->ShowPicture(overviewPicture_);
}

void ProjectCommands::EnableProjectControls() {
    session_.view.MapZoom = 1;
    session_.targetFrameEnabled = true;  // in the other modes too
    widgets_.ShowState();
}

void ProjectCommands::CopyMapPicture() {
    session_.map = std::move(overviewPicture_);
    Canvas(widgets_.mapFrame->Img_Map->Surface()).Stretch(session_.map, 0, 0, 1);
}

void ProjectCommands::DrawFrontlines() {
    if (!session_.layers.mnu_v_frontlines)
        return;
    Canvas canvas(widgets_.mapFrame->Img_Map->Surface());
    DrawFrontlineLayer(canvas, session_.view, session_.campaign, session_.preferences,
                       session_.view.ViewFrontline, -1);
}

void ProjectCommands::DrawRailways() {
    if (!session_.layers.mnu_v_railways)
        return;
    Canvas canvas(widgets_.mapFrame->Img_Map->Surface());
    DrawRailwayLayer(canvas, session_.view, session_.campaign, session_.preferences);
}

void ProjectCommands::ResetViewSelectors() {
    session_.view.ViewFrontline = 0;
    session_.layers.upd_view_railway = 0;
    // The layer that tells it may be switched off.
    widgets_.fra_control->Refresh();
}

void ProjectCommands::ZoomTo100() {
    widgets_.menu.mnu_m_z_100->trigger();
}

void ProjectCommands::UpdateRecentProjects() {
    const ProjectPaths &paths = session_.campaign.paths;
    vtr::UpdateRecentProjects(session_.preferences, paths.Name, paths.ProjectDir + paths.ProjectFile);
    widgets_.menu.ShowRecentProjects(session_.preferences.RecentProjectNames);
}

void ProjectCommands::SelectFirstItems() {
    const bool moved = session_.selection != Selection();
    session_.selection = {};
    for (Panel *panel :
         std::initializer_list<Panel *>{widgets_.fra_target, widgets_.fra_frontline, widgets_.fra_railway,
                                        widgets_.fra_roadint, widgets_.fra_railint})
        panel->ShowSelection();
    // The map was drawn with the items that were selected before the load.
    if (moved)
        redraw_();
}

void ProjectCommands::TellShortFiles(const std::vector<ShortFile> &files) {
    QString text =
        tr("The project is loaded, but these files end too early. What is missing of them counts as "
           "zero:\n");
    for (const ShortFile &file : files)
        text += tr("\n%1\n    found %2 bytes, expected %3 bytes")
                    .arg(QString::fromStdString(file.path))
                    .arg(file.found)
                    .arg(file.expected);
    ShowMessage(window_, QMessageBox::Warning, text);
}

}  // namespace vtr
