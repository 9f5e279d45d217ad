#pragma once

#include <optional>
#include <string>

#include "Campaign.h"
#include "MapDisplay.h"
#include "MapView.h"
#include "Picture.h"
#include "Preferences.h"

namespace vtr {

/// The caption of `lbl_disabled`: "No Lines disabled" or "Lines 850+ Disabled".
std::string DisabledLinesText(std::int16_t firstDisabledRailwayLine);

/// Paints surface (640 x 320) anew: the part of worldMap that view shows, then the layers that display asks
/// for, the targets on top. Steps the flash phase of view. With showNow the ring of the selected target is
/// drawn whatever the phase. Before the first project load (MapZoom 0) the surface becomes black. Gives the
/// new caption of `lbl_disabled` when the railway layer was drawn. Throws index Errors for what display
/// selects outside a table; what was drawn before then stands.
std::optional<std::string> Redraw(Picture &surface, const Picture &worldMap, const Campaign &campaign,
                                  const Preferences &preferences, const MapDisplay &display, MapView &view,
                                  bool showNow = false);

}  // namespace vtr
