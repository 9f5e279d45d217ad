#pragma once

#include "LoadProject.h"

namespace vtr {

/// Lets a project be loaded without a window.
struct SilentWindow : LoadProjectWindow {
    void ShowProgress() override {}
    void SetProgress(double) override {}
    void ShowProjectName(const std::string &) override {}
    void TellNoMap() override {}
    void CloseProgress() override {}
    void LoadMapPicture(const std::string &) override {}
    void EnableProjectControls() override {}
    void CopyMapPicture() override {}
    void DrawFrontlines() override {}
    void DrawRailways() override {}
    void ResetViewSelectors() override {}
    void ZoomTo100() override {}
    void UpdateRecentProjects() override {}
    void SelectFirstItems() override {}
    void TellShortFiles(const std::vector<ShortFile> &) override {}
};

}  // namespace vtr
