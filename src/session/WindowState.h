#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Session.h"

namespace vtr {

/// What is enabled and what is checked in the main window.
struct WindowState {
    struct OfMode {
        bool entryChecked = false;
        bool frameEnabled = false;
        bool viewSelectorEnabled = false;
        bool layerChecked = false;
    };

    bool projectEnabled = false;  ///< "&Zoom", "&View", "&Save Files..." and the control box
    bool goToEnabled = false;     ///< "&Go to Selected Item": there is nowhere to go when all is shown
    bool airfieldFrameEnabled = false;
    std::array<OfMode, editModeTotal> modes;  ///< in the order of EditMode
    ZoomMenuState zoomMenu;
};

WindowState WindowStateOf(const Session &session);

/// What the main window shows of the edits.
struct EditState {
    std::optional<std::string> undo;  ///< the name of the edit that can be taken back
    std::optional<std::string> redo;
    std::vector<std::string_view> editedFiles;  ///< usual names of those that are not saved
};

EditState EditStateOf(const Session &session);

}  // namespace vtr
