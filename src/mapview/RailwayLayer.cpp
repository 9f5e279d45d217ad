#include <algorithm>

#include "Arithmetic.h"
#include "MapLayers.h"
#include "MapPen.h"

namespace vtr {

namespace {

constexpr std::int32_t highlightColour = 65535;  // yellow
constexpr int neighbours = 20;

void DrawLine(MapPen &pen, const RailwayLine &line) {
    pen.Segment(line.x1, line.y1, line.x2, line.y2);
}

}  // namespace

void DrawRailwayLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                      const Preferences &preferences) {
    MapPen pen(canvas, view, preferences.RailwayColour);
    for (const RailwayLine &line : campaign.RailwayTable)
        DrawLine(pen, line);
}

LineRange NeighboursOf(std::int16_t line) {
    CheckIndex(line, railwayLineTotal, {.file = {}, .item = "railway line"});
    constexpr int lastShown = static_cast<int>(railwayLineTotal) - 2;
    return {std::max(line - neighbours, 1), std::min(line + neighbours, lastShown)};
}

void DrawRailwayNeighbourhood(Canvas &canvas, const MapView &view, const Campaign &campaign,
                              const Preferences &preferences, std::int16_t line) {
    const LineRange shown = NeighboursOf(line);
    MapPen pen(canvas, view, preferences.RailwayColour);
    MapPen highlight(canvas, view, highlightColour);
    for (int i = shown.first; i <= shown.last; ++i)
        DrawLine(i == line ? highlight : pen, campaign.RailwayTable[static_cast<std::size_t>(i)]);
}

}  // namespace vtr
