#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Campaign.h"
#include "Errors.h"
#include "LoadListener.h"

namespace vtr {

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
    /// Loads the picture at path into Img_SmallMap; throws an Error when it cannot.
    virtual void LoadMapPicture(const std::string &path) = 0;
    /// Enables the menus and frames that need a project and sets MapZoom to 1.
    virtual void EnableProjectControls() = 0;
    /// Copies the picture of Img_SmallMap into Img_Map.
    virtual void CopyMapPicture() = 0;
    /// Draw their layer when its view entry is checked.
    virtual void DrawFrontlines() = 0;
    virtual void DrawRailways() = 0;
    virtual void ResetViewSelectors() = 0;
    virtual void ZoomTo100() = 0;
    virtual void UpdateRecentProjects() = 0;
    /// Sets the item selectors of the panels to item 0.
    virtual void SelectFirstItems() = 0;
    /// Lists the files that were too short; called only when there are any, after the progress window has
    /// closed.
    virtual void TellShortFiles(const std::vector<ShortFile> &files) = 0;
};

/// Why path cannot be the path of a project at all (it is empty or a folder), when it cannot.
std::optional<Error> RefusalOfProjectPath(const std::string &path);

/// Loads the project at path (UTF-8) into campaign and the window. An error leaves it half loaded and the
/// progress window open: the caller must not go on.
void LoadProject(const std::string &path, Campaign &campaign, LoadProjectWindow &window);

}  // namespace vtr
