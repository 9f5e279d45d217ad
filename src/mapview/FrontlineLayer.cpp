#include "Arithmetic.h"
#include "MapLayers.h"
#include "MapPen.h"

namespace vtr {

void DrawFrontlineLayer(Canvas &canvas, const MapView &view, const Campaign &campaign,
                        const Preferences &preferences, std::int16_t frontline, std::int16_t selectedPoint) {
    const Frontline &shown =
        campaign.FrontlineTable[CheckIndex(frontline, frontlineTotal, {.file = {}, .item = "frontline"})];
    MapPen pen(canvas, view, preferences.FrontlineColour);
    const int count = shown.point_count();
    for (int k = 0; k + 1 < count; ++k) {
        const FrontlinePoint &from = shown.points[static_cast<std::size_t>(k)];
        const FrontlinePoint &to = shown.points[static_cast<std::size_t>(k) + 1];
        if (pen.Segment(from.x, from.y, to.x, to.y) && k == selectedPoint)
            pen.Ring(from.x, from.y);
    }
}

}  // namespace vtr
