#pragma once

#include <QObject>
#include <functional>

#include "LoadProject.h"
#include "MainWidgets.h"

namespace vtr {

class frm_progress;
class SaveCommands;
class WorkKeeper;

/// The commands of the project menu that load, make and save projects.
class ProjectCommands : public QObject, private LoadProjectWindow {
    Q_OBJECT

  public:
    ProjectCommands(Session &session, MainWidgets &widgets, SaveCommands &saveCommands,
                    WorkKeeper &workKeeper, QMainWindow *window, std::function<void()> redraw);

    /// Loads the project at path (UTF-8). An empty path or a folder is refused in a warning; any other
    /// failure is left to the event boundary, which ends the program.
    void Load(const std::string &path);
    /// Loads a project file that was dropped on the window; asks about an export as "&Load Project..." does.
    void LoadDropped(const QString &path);

  private:
    enum class Answer { Yes, No, Cancel };
    /// Asks whether the open project is to be exported; No when none is open.
    Answer AskForExport();
    void MakeNewProject();
    void ChooseAndLoad();
    void LoadRecent(std::size_t index);
    /// Loads the sample campaign that lies in the user's data folder; makes it when there is none.
    void OpenSample();

    void ShowProgress() override;
    void SetProgress(double value) override;
    void ShowProjectName(const std::string &name) override;
    void TellNoMap() override;
    void CloseProgress() override;
    void LoadMapPicture(const std::string &path, LoadListener &listener) override;
    void ShowCampaign() override;
    void Tell(const LoadReport &report) override;

    void SelectFirstItems();

    Session &session_;
    MainWidgets &widgets_;
    SaveCommands &saveCommands_;
    WorkKeeper &workKeeper_;
    QMainWindow *window_;
    std::function<void()> redraw_;
    frm_progress *frm_progress_;
    bool isHandedOver_ = false;  ///< the campaign that is being loaded is the open one now
    Picture readMap_;            ///< the map picture of the project that is being loaded
    std::string lastChosenFile_;
};

}  // namespace vtr
