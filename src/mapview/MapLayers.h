#pragma once

#include <cstdint>

#include "Campaign.h"
#include "Canvas.h"
#include "MapView.h"
#include "Preferences.h"

namespace vtr {

// The layers draw with pens as wide as a map pixel is shown, the targets with one of 2 pixels. A segment is
// drawn unless both its ends are off-screen. An index outside its table stops a layer with an index Error.

/// Draws one frontline, and a ring around its point selectedPoint (-1: none). The ring belongs to the segment
/// that begins there: it never marks the last point and is left out with the segment.
void DrawFrontlineLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                        const Preferences &preferences, std::int16_t frontline, std::int16_t selectedPoint);

/// Draws the whole railway network.
void DrawRailwayLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences);
/// Draws only the lines up to 20 numbers from line, never 0 and the last one, and line itself in yellow.
void DrawRailwayNeighbourhood(Canvas &canvas, const MapView &view, const Campaign &campaign,
                              const Preferences &preferences, std::int16_t line);

/// Draw all paths, or only the one numbered viewNumber - 1 when viewNumber is not 0.
void DrawRoadIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber);
void DrawRailIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber);

/// Draws an X for each target and, every second time that target selected is on screen, a ring around it.
/// With showNow the ring is drawn this time.
void DrawTargetLayer(Canvas &canvas, MapView &view, const Campaign &campaign, const Preferences &preferences,
                     std::int16_t selected, bool showNow);

}  // namespace vtr
