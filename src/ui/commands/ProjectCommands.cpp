#include "ProjectCommands.h"

#include <QDir>
#include <QGuiApplication>
#include <QMessageBox>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <utility>

#include "ControlBox.h"
#include "ErrorReport.h"
#include "FileChooser.h"
#include "FrontlinePanel.h"
#include "GameText.h"
#include "MapPictureFile.h"
#include "Operation.h"
#include "Overview.h"
#include "Paths.h"
#include "ProgramVersion.h"
#include "RailwayPanel.h"
#include "SampleCampaign.h"
#include "SaveCommands.h"
#include "ShowMessage.h"
#include "StartLinks.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "Text.h"
#include "UnsavedWorkQuestion.h"
#include "WaypointPanel.h"
#include "WorkKeeper.h"
#include "frm_newproject.h"
#include "frm_progress.h"

namespace vtr {

namespace {

/// Writes the sample campaign into folder, under another name until it is whole.
std::optional<Error> FailureOfMakingSample(const std::string &folder) {
    const std::filesystem::path whole = FilesystemPath(folder).parent_path();
    std::filesystem::path unfinished = whole;
    unfinished += ".new";
    try {
        std::filesystem::remove_all(unfinished);
        WriteSampleCampaign(PathText(unfinished));
        std::filesystem::rename(unfinished, whole);
    } catch (const Error &error) {
        return error;
    } catch (const std::filesystem::filesystem_error &error) {
        return Error(ErrorKind::FileAccess, {.file = PathText(error.path1())},
                     FailedStep{.step = "write", .reason = error.code().message()});
    }
    return std::nullopt;
}

}  // namespace

ProjectCommands::ProjectCommands(Session &session, MainWidgets &widgets, SaveCommands &saveCommands,
                                 WorkKeeper &workKeeper, QMainWindow *window, std::function<void()> redraw)
    : QObject(window),
      session_(session),
      widgets_(widgets),
      saveCommands_(saveCommands),
      workKeeper_(workKeeper),
      window_(window),
      redraw_(std::move(redraw)),
      frm_progress_(new frm_progress(window)) {
    const MainMenu &menu = widgets.menu;
    connect(menu.mnu_p_new, &QAction::triggered, this, &ProjectCommands::MakeNewProject);
    connect(menu.mnu_p_load, &QAction::triggered, this, &ProjectCommands::ChooseAndLoad);
    for (std::size_t i = 0; i < menu.mnu_p_last.size(); ++i)
        connect(menu.mnu_p_last[i], &QAction::triggered, this, [this, i] { LoadRecent(i); });
    connect(widgets.startLinks, &StartLinks::SampleRequested, this, &ProjectCommands::OpenSample);
}

void ProjectCommands::Load(const std::string &path) {
    const Operation loading(session_.operation, tr("Loading the project"));
    if (const auto refusal = RefusalOfProjectPath(path)) {
        ShowMessage(window_, QMessageBox::Warning,
                    ErrorReport(QString::fromStdString(session_.operation), *refusal,
                                tr("Nothing was changed. Choose a project file (*.prj).")));
        return;
    }
    const QString nameBefore = widgets_.sb_status->project->text();
    session_.loadFailed = false;
    isHandedOver_ = false;
    const bool isLost = workKeeper_.KeepAndWait() == Kept::Failed;
    const QString loss =
        isLost ? workKeeper_.LossReport(tr("Another load has taken their place. The edits that you had not "
                                           "saved are lost; the project's files are as you last saved them. "
                                           "Put right what is said above before you go on editing."))
               : QString();
    try {
        LoadProject(path, session_.campaign, *this, &session_.fileStamps);
    } catch (...) {
        if (!isHandedOver_)
            widgets_.sb_status->project->setText(nameBefore);
        session_.loadFailed = !isHandedOver_;
        throw;
    }
    saveCommands_.ProjectChanged();
    if (!isHandedOver_)  // it met "NONE" and read none of the files
        return;
    if (isLost)
        ShowMessage(window_, QMessageBox::Warning, loss);
    OfferUnsavedWork(session_, workKeeper_, window_, [this] {
        widgets_.ShowSelections();
        redraw_();
    });
    saveCommands_.TellStoppedSave();
}

ProjectCommands::Answer ProjectCommands::AskForExport() {
    if (!session_.campaign.ProjectLoaded)
        return Answer::No;
    const auto answer =
        QMessageBox::question(window_, programTitle, QStringLiteral("Do you wish to export this project?"),
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    return answer == QMessageBox::Yes ? Answer::Yes : answer == QMessageBox::No ? Answer::No : Answer::Cancel;
}

void ProjectCommands::ChooseAndLoad() {
    const Answer answer = AskForExport();
    if (answer == Answer::Cancel)
        return;
    if (answer == Answer::Yes)
        saveCommands_.Show();
    // The save dialog is not waited for: it can be used beside the chooser.
    saveCommands_.SetUsableBesideMainWindow(true);
    const std::string chosen = ChooseFile(window_, QFileDialog::AcceptOpen, QStringLiteral("Load Project"),
                                          projectFilter, lastChosenFile_, saveCommands_.OpenDialog());
    saveCommands_.SetUsableBesideMainWindow(false);
    if (chosen.empty())
        return;
    lastChosenFile_ = chosen;
    Load(chosen);
}

void ProjectCommands::LoadDropped(const QString &path) {
    const Answer answer = AskForExport();
    if (answer == Answer::No || (answer == Answer::Yes && saveCommands_.ShowAndWait()))
        Load(CleanAbsolutePath(QDir::toNativeSeparators(path).toStdString()));
}

void ProjectCommands::LoadRecent(std::size_t index) {
    // A copy: the load itself moves the list.
    const std::string file = session_.preferences.RecentProjectFiles[index];
    const Answer answer = AskForExport();
    if (answer == Answer::Yes)
        saveCommands_.ShowAndWait();
    if (answer != Answer::Cancel)
        Load(file);
}

void ProjectCommands::OpenSample() {
    const std::string folder =
        (session_.dataFolder.empty() ? NativePath(QDir::tempPath()) + "/" : session_.dataFolder) +
        "sample-campaign/";
    if (!FileExists(folder + "sample.prj")) {
        const Operation making(session_.operation, tr("Making the sample campaign"));
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const auto failure = FailureOfMakingSample(folder);
        QGuiApplication::restoreOverrideCursor();
        if (failure)
            return ShowMessage(window_, QMessageBox::Warning,
                               ErrorReport(QString::fromStdString(session_.operation), *failure,
                                           tr("No project was loaded. Put right what is said above and click "
                                              "\"Open the sample campaign\" again.")));
    }
    Load(CleanAbsolutePath(folder + "sample.prj"));
}

void ProjectCommands::MakeNewProject() {
    const Operation making(session_.operation, tr("Making the new project"));
    frm_newproject dialog(session_.programFolder, window_);
    if (dialog.exec() != QDialog::Accepted || dialog.ProjectPath().empty())
        return;
    if (!dialog.MapWasGenerated())
        return Load(dialog.ProjectPath());
    // From the generation of the map on, no failure ends the program.
    try {
        Load(dialog.ProjectPath());
        session_.mapIsUpsideDown = true;
        widgets_.ShowState();
    } catch (const Error &error) {
        CloseProgress();
        session_.loadFailed = false;
        ShowMessage(
            window_, QMessageBox::Warning,
            ErrorReport(
                tr("Loading the new project"), error,
                tr("The project file and the files beside it are made; the map picture may be "
                   "missing. Nothing else was changed. Put right what is said above, then load the new "
                   "project.")));
    }
    if (!FileExists(session_.programFolder + "map.dat"))
        widgets_.sb_status->showMessage(tr("No map could be generated: map.dat is missing in %1")
                                            .arg(QString::fromStdString(session_.programFolder)));
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

void ProjectCommands::LoadMapPicture(const std::string &path, LoadListener &listener) {
    std::optional<ShortFile> shortFile;
    readMap_ = ReadMapPicture(path, &shortFile);
    if (shortFile)
        listener.FoundShortFile(*shortFile);
}

void ProjectCommands::ShowCampaign() {
    const ProjectPaths &paths = session_.campaign.paths;
    isHandedOver_ = true;
    workKeeper_.LetGo();
    session_.tablesProject = paths.ProjectDir + paths.ProjectFile;
    session_.map = std::move(readMap_);
    session_.mapIsUpsideDown = false;
    session_.view.MapZoom = 1;
    session_.view.ViewFrontline = 0;
    session_.layers.upd_view_railway = 0;
    session_.targetFrameEnabled = true;  // in the other modes too
    session_.CampaignLoaded();
    widgets_.ShowState();
    widgets_.Img_SmallMap->ShowPicture(session_.map);
    // Not only by the redraw: the layer that tells it may be switched off.
    widgets_.fra_control->Refresh();
    widgets_.menu.mnu_m_z_100->trigger();
    UpdateRecentProjects(session_.preferences, paths.Name, paths.ProjectDir + paths.ProjectFile);
    widgets_.menu.ShowRecentProjects(session_.preferences.RecentProjectNames);
    SelectFirstItems();
}

void ProjectCommands::SelectFirstItems() {
    const bool moved = session_.selection != Selection();
    session_.selection = {};
    widgets_.ShowSelections();
    // The map was drawn with the items that were selected before the load.
    if (moved)
        redraw_();
}

void ProjectCommands::Tell(const LoadReport &report) {
    QStringList notes;
    if (!report.keysWithoutFile.empty()) {
        QStringList keys;
        for (const std::string &key : report.keysWithoutFile)
            keys << QString::fromStdString(key);
        notes << tr("The project names no file for %1.").arg(keys.join(QStringLiteral(", ")));
    }
    if (report.projectFile.wasMade)
        notes << tr(
            "The project file did not exist: an empty one was made, and the names of the project before "
            "count.");
    if (report.projectFile.hasUtf8Mark)
        notes << tr("The project file begins with a UTF-8 mark, so that its first line counts for nothing.");
    if (!notes.isEmpty())
        widgets_.sb_status->showMessage(notes.join(QLatin1Char(' ')), 20000);
    if (report.shortFiles.empty())
        return;
    QString text =
        tr("The project is loaded, but these files end too early. What is missing of them counts as "
           "zero:\n");
    for (const ShortFile &file : report.shortFiles)
        text += tr("\n%1\n    found %2 bytes, expected %3")
                    .arg(QString::fromStdString(Shortened(file.path, longestShownPath)))
                    .arg(file.found)
                    .arg(file.expected == 0 ? tr("more") : tr("%1 bytes").arg(file.expected));
    text +=
        tr("\n\nA save writes what is missing as zeros into the files that it saves. Before you save, put "
           "whole files in their place and load the project again.");
    ShowMessage(window_, QMessageBox::Warning, text);
}

}  // namespace vtr
