#pragma once

#include <array>

#include "Session.h"

namespace vtr {

/// What of the main window is enabled and what is checked.
struct WindowState {
    struct OfMode {
        bool entryChecked = false;
        bool frameEnabled = false;
        bool viewSelectorEnabled = false;
        bool layerChecked = false;
    };

    bool projectEnabled = false;  ///< "&Zoom", "&View", "&Save Files..." and the control box
    bool airfieldFrameEnabled = false;
    std::array<OfMode, editModeTotal> modes;  ///< in the order of EditMode
    ZoomMenuState zoomMenu;
};

WindowState WindowStateOf(const Session &session);

}  // namespace vtr
