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
    void LoadMapPicture(const std::string &, LoadListener &) override {}
    void ShowCampaign() override {}
    void Tell(const LoadReport &) override {}
};

}  // namespace vtr
