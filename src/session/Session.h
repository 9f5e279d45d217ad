#pragma once

#include <array>
#include <string>

#include "Campaign.h"
#include "EditMode.h"
#include "MapDisplay.h"
#include "MapView.h"
#include "Picture.h"
#include "Preferences.h"
#include "Selection.h"

namespace vtr {

/// All that the editor holds while it runs: made once by the program's start and handed down by reference.
struct Session {
    Campaign campaign;
    Preferences preferences;
    MapView view;
    ShownLayers layers;
    EditMode mode = EditMode::Target;
    Selection selection;
    /// Of the frames these two do not go by the mode alone: a load enables the target's in every mode, ...
    bool targetFrameEnabled = false;
    /// ... and the airfield's stays off when the targets' mode comes back, until a target is selected.
    bool airfieldFrameEnabled = false;
    Picture map;                   ///< the project's map picture
    std::string tablesProject;     ///< the project file that the tables were loaded from
    bool loadFailed = false;       ///< the last load; what was open before is whole
    bool mapIsUpsideDown = false;  ///< it was generated here and not mirrored since
    std::string programFolder;     ///< ends in a separator
    std::string dataFolder;        ///< the user's, ends in a separator; empty: keep nothing there
    std::string operation = "Your last action";  ///< what the program is at (UTF-8), see Operation
};

/// The layer that each mode edits, in the order of EditMode.
constexpr std::array<bool ShownLayers::*, editModeTotal> layersOfModes{
    &ShownLayers::mnu_v_targets, &ShownLayers::mnu_v_frontlines, &ShownLayers::mnu_v_railways,
    &ShownLayers::mnu_v_roadint, &ShownLayers::mnu_v_railint};

/// Switches to mode; whether its layer is shown stays as it was.
void SwitchMode(Session &session, EditMode mode);
/// What the next redraw shows.
MapDisplay DisplayOf(const Session &session);

}  // namespace vtr
