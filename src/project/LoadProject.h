#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Campaign.h"
#include "Errors.h"
#include "FileStamps.h"
#include "LoadListener.h"
#include "ProjectFile.h"

namespace vtr {

/// What the user should know of a project that is loaded.
struct LoadReport {
    std::vector<ShortFile> shortFiles;
    std::vector<std::string> keysWithoutFile;  ///< of the project file
    ProjectFileFacts projectFile;
};

/// What loading a project asks of the window, in the order in which it asks.
class LoadProjectWindow {
  public:
    virtual ~LoadProjectWindow() = default;
    /// Shows the progress window with the caption "Load Project..." and its bar at 0, without waiting for it.
    virtual void ShowProgress() = 0;
    /// The bar's value; 0 to 100, but a project file of more than 100 lines goes beyond.
    virtual void SetProgress(double value) = 0;
    /// Names the project in the status bar.
    virtual void ShowProjectName(const std::string &name) = 0;
    /// Says "No Map specified. Cannot load project."
    virtual void TellNoMap() = 0;
    virtual void CloseProgress() = 0;
    /// Reads the picture at path, which ShowCampaign is to show; tells listener when it is short and throws
    /// an Error when it cannot.
    virtual void LoadMapPicture(const std::string &path, LoadListener &listener) = 0;
    /// The campaign is loaded: shows it with its map picture at 100% and its first items selected, and adds
    /// it to the recent projects.
    virtual void ShowCampaign() = 0;
    /// Tells what the user should know of the loaded project; the progress window has closed.
    virtual void Tell(const LoadReport &report) = 0;
};

/// Why path cannot be the path of a project at all (it is empty or a folder), when it cannot.
std::optional<Error> RefusalOfProjectPath(const std::string &path);

/// Loads the project at path (UTF-8) in place of open and shows it in the window. What the project lacks
/// stays as it is in open; of a project without a map ("NONE") only the paths and the name are taken over.
/// When the campaign is handed over, stamps (which may be null) get what its files were. Throws the Errors of
/// the files; open is then as it was, and the progress window is open.
void LoadProject(const std::string &path, Campaign &open, LoadProjectWindow &window,
                 FileStamps *stamps = nullptr);

}  // namespace vtr
