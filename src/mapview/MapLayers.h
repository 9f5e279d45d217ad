#pragma once

#include <cstdint>

#include "Campaign.h"
#include "Canvas.h"
#include "MapView.h"
#include "Preferences.h"

namespace vtr {

// The layers draw with a pen as wide as one map pixel on the screen, the target layer with a pen of 2 pixels.
// A segment is drawn unless both its ends are off-screen. An index outside its table throws an index Error.

/// Draws one frontline and a ring around its point selectedPoint (-1: none). The ring is drawn with the
/// segment that begins at this point. So the last point has no ring, nor has a point whose segment is left
/// out.
void DrawFrontlineLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                        const Preferences &preferences, std::int16_t frontline, std::int16_t selectedPoint);

/// Draws the whole railway network.
void DrawRailwayLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences);
/// The lines from first to last.
struct LineRange {
    int first;
    int last;
};
/// The lines up to 20 numbers away from line, but never line 0 and the last line. Throws an index Error for a
/// line outside the table.
LineRange NeighboursOf(std::int16_t line);
/// Draws line in yellow and its other neighbours.
void DrawRailwayNeighbourhood(Canvas &canvas, const MapView &view, const Campaign &campaign,
                              const Preferences &preferences, std::int16_t line);

/// Draw all paths, or only the one numbered viewNumber - 1 when viewNumber is not 0.
void DrawRoadIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber);
void DrawRailIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber);

/// Draws an X for each target. Around target selected it draws a ring every second time that this target is
/// on screen. With showNow it draws the ring this time.
void DrawTargetLayer(Canvas &canvas, MapView &view, const Campaign &campaign, const Preferences &preferences,
                     std::int16_t selected, bool showNow);

}  // namespace vtr
