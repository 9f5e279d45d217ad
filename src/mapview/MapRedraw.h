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

/// Draws on surface (640 x 320) the part of worldMap that view shows, then the layers that display asks for,
/// the targets last. Before the first project load (MapZoom 0) it makes the surface black. Steps the flash
/// phase of view. With showNow it draws the ring of the selected target in either phase. Returns the new
/// caption of `lbl_disabled` when it has drawn the railway layer. Throws an index Error when display selects
/// something outside a table; what is drawn by then stays.
std::optional<std::string> Redraw(Picture &surface, const Picture &worldMap, const Campaign &campaign,
                                  const Preferences &preferences, const MapDisplay &display, MapView &view,
                                  bool showNow = false);

}  // namespace vtr
