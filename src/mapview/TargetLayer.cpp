#include "Arithmetic.h"
#include "MapLayers.h"
#include "MapPen.h"

namespace vtr {

namespace {

constexpr int targetPenWidth = 2;

std::uint32_t ColourOf(const TargetRecord &target, const Preferences &preferences) {
    return CanvasColour(target.airfield_mark != 0 ? preferences.AirfieldColour : preferences.TargetColour);
}

void DrawX(Canvas &canvas, CanvasPoint centre, std::int32_t arm, std::uint32_t colour) {
    canvas.Line({centre.x - arm, centre.y - arm}, {centre.x + arm, centre.y + arm}, targetPenWidth, colour);
    canvas.Line({centre.x + arm, centre.y - arm}, {centre.x - arm, centre.y + arm}, targetPenWidth, colour);
}

}  // namespace

void DrawTargetLayer(Canvas &canvas, MapView &view, const Campaign &campaign, const Preferences &preferences,
                     std::int16_t selected, bool showNow) {
    const std::int32_t arm = 2 * view.MapZoom;
    for (const TargetRecord &target : campaign.TargetTable) {
        if (IsMarkerRow(target.y))
            continue;
        const ScreenPoint centre = MapToScreen(view, target.x, target.y);
        if (centre.visible)
            DrawX(canvas, PointOnCanvas(view, centre), arm, ColourOf(target, preferences));
    }

    const TargetRecord &target =
        campaign.TargetTable[CheckIndex(selected, targetTotal, {.file = {}, .item = "target"})];
    if (showNow)
        view.TargetFlashPhase = true;
    const ScreenPoint centre = MapToScreen(view, target.x, target.y);
    if (!centre.visible)
        return;
    if (view.TargetFlashPhase)
        canvas.Circle(PointOnCanvas(view, centre), RingRadius(view), targetPenWidth,
                      ColourOf(target, preferences));
    view.TargetFlashPhase = !view.TargetFlashPhase;
}

}  // namespace vtr
