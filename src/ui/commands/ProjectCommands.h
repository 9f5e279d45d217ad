#pragma once

#include <QObject>
#include <functional>

#include "LoadProject.h"
#include "MainWidgets.h"
#include "SaveFiles.h"

namespace vtr {

class frm_progress;

/// The commands of the project menu that load, make and save projects.
class ProjectCommands : public QObject, private LoadProjectWindow {
    Q_OBJECT

  public:
    ProjectCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                    std::function<void()> redraw);

    /// Loads the project at path (UTF-8). An empty path or a folder is refused in a warning; any other
    /// failure is left to the event boundary, which ends the program.
    void Load(const std::string &path);
    /// Loads a project file that was dropped on the window; asks about an export as "&Load Project..." does.
    void LoadDropped(const QString &path);

  private:
    /// Whether to wait until the save dialog is closed.
    enum class SaveDialogMode { Wait, GoOn };

    /// Asks whether the open project is to be exported, if one is, and shows the save dialog then; false to
    /// stop.
    bool OfferExport(SaveDialogMode mode);
    void MakeNewProject();
    void ChooseAndLoad();
    void LoadRecent(std::size_t index);
    void ShowSaveDialog(SaveDialogMode mode);
    bool Save(const SaveBoxes &ticked);

    void ShowProgress() override;
    void SetProgress(double value) override;
    void ShowProjectName(const std::string &name) override;
    void TellNoMap() override;
    void CloseProgress() override;
    void LoadMapPicture(const std::string &path) override;
    void EnableProjectControls() override;
    void CopyMapPicture() override;
    void DrawFrontlines() override;
    void DrawRailways() override;
    void ResetViewSelectors() override;
    void ZoomTo100() override;
    void UpdateRecentProjects() override;
    void SelectFirstItems() override;
    void TellShortFiles(const std::vector<ShortFile> &files) override;

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> redraw_;
    frm_progress *frm_progress_;
    Picture overviewPicture_;  ///< the one that Img_SmallMap shows, until the load copies it to the map
    std::string lastChosenFile_;
};

}  // namespace vtr
