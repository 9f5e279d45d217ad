#include "MapRedraw.h"

#include "Canvas.h"
#include "MapLayers.h"

namespace vtr {

namespace {

void DrawRailways(Canvas &canvas, const Campaign &campaign, const Preferences &preferences,
                  const MapDisplay &display, const MapView &view) {
    if (const auto line = LineWithNeighbours(display))
        DrawRailwayNeighbourhood(canvas, view, campaign, preferences, *line);
    else
        DrawRailwayLayer(canvas, view, campaign, preferences);
}

}  // namespace

std::string DisabledLinesText(std::int16_t firstDisabledRailwayLine) {
    if (firstDisabledRailwayLine == 0)
        return "No Lines disabled";
    return "Lines " + std::to_string(firstDisabledRailwayLine) + "+ Disabled";
}

std::optional<std::string> Redraw(Picture &surface, const Picture &worldMap, const Campaign &campaign,
                                  const Preferences &preferences, const MapDisplay &display, MapView &view,
                                  bool showNow) {
    Canvas canvas(surface);
    if (view.MapZoom == 0) {
        canvas.Stretch({}, 0, 0, 1);
        return std::nullopt;
    }
    canvas.Stretch(worldMap, view.h_scroll.Value, view.v_scroll.Value, view.MapZoom);
    if (display.mnu_v_frontlines)
        DrawFrontlineLayer(canvas, view, campaign, preferences,
                           display.mnu_e_frontline ? display.upd_frnt_num : view.ViewFrontline,
                           display.mnu_e_frontline ? display.upd_frnt_pointnum : std::int16_t{-1});
    std::optional<std::string> caption;
    if (display.mnu_v_railways) {
        DrawRailways(canvas, campaign, preferences, display, view);
        caption = DisabledLinesText(campaign.firstDisabledRailwayLine);
    }
    if (display.mnu_v_roadint)
        DrawRoadIntLayer(canvas, view, campaign, preferences, display.upd_view_roadint);
    if (display.mnu_v_railint)
        DrawRailIntLayer(canvas, view, campaign, preferences, display.upd_view_railint);
    if (display.mnu_v_targets)
        DrawTargetLayer(canvas, view, campaign, preferences, display.upd_tar_code, showNow);
    return caption;
}

}  // namespace vtr
