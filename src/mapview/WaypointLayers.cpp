#include <span>
#include <string_view>

#include "Arithmetic.h"
#include "MapLayers.h"
#include "MapPen.h"

namespace vtr {

namespace {

/// Draws all paths, or only path viewNumber - 1 when viewNumber is not 0. what is the item of an index Error.
void DrawPaths(MapPen pen, std::span<const WaypointPath> paths, std::int16_t viewNumber,
               std::string_view what) {
    if (viewNumber != 0)
        paths = paths.subspan(CheckIndex(viewNumber - 1, paths.size(), {.file = {}, .item = what}), 1);
    for (const WaypointPath &path : paths) {
        for (int k = 0; k + 1 < path.count; ++k) {
            const Waypoint &to = path.waypoints[CheckIndex(k + 1, waypointTotal, {.file = {}, .item = what})];
            const Waypoint &from = path.waypoints[static_cast<std::size_t>(k)];
            pen.Segment(from.x, from.y, to.x, to.y);
        }
    }
}

}  // namespace

void DrawRoadIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber) {
    DrawPaths(MapPen(canvas, view, preferences.RoadIntColour), campaign.RoadWaypointTable, viewNumber,
              "road interdiction path");
}

void DrawRailIntLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences, std::int16_t viewNumber) {
    DrawPaths(MapPen(canvas, view, preferences.RailIntColour), campaign.RailWaypointTable, viewNumber,
              "rail interdiction path");
}

}  // namespace vtr
