#include "ZoomCommands.h"

#include <algorithm>

#include "Arithmetic.h"
#include "MapCoordinates.h"

namespace vtr {

namespace {

constexpr std::int16_t largestZoom = 100;

void SetLargeChanges(MapView &view, ScrollBars bars) {
    view.v_scroll.LargeChange = RoundToInt16(ViewHeight(view));
    bars.v_scroll.SetLargeChange(view.v_scroll.LargeChange);
    view.h_scroll.LargeChange = RoundToInt16(ViewWidth(view));
    bars.h_scroll.SetLargeChange(view.h_scroll.LargeChange);
}

/// May lower the values. That calls the change handlers, which set the centre again.
void SetMaxima(MapView &view, ScrollBars bars) {
    view.v_scroll.Max = RoundToInt16(mapHeight - ViewHeight(view));
    bars.v_scroll.SetMaximum(view.v_scroll.Max);
    view.h_scroll.Max = RoundToInt16(mapWidth - ViewWidth(view));
    bars.h_scroll.SetMaximum(view.h_scroll.Max);
}

void PlaceOverviewRectangle(MapView &view) {
    view.shp_area.Left = RoundToInt16(static_cast<double>(view.h_scroll.Value) / overviewScale);
    view.shp_area.Top = RoundToInt16(static_cast<double>(view.v_scroll.Value) / overviewScale);
    view.shp_area.Width = RoundToInt16(ViewWidth(view) / overviewScale);
    view.shp_area.Height = RoundToInt16(ViewHeight(view) / overviewScale);
}

std::int16_t CentredValue(std::int16_t center, double halfView) {
    return std::max<std::int16_t>(RoundToInt16(center - halfView), 0);
}

void CentreAcross(MapView &view) {
    view.MapCenterX = ToInt16(FloorToInt32(ViewWidth(view) / 2) + view.h_scroll.Value);
}

void CentreDown(MapView &view) {
    view.MapCenterY = ToInt16(FloorToInt32(ViewHeight(view) / 2) + view.v_scroll.Value);
}

void ApplyZoom(MapView &view, ScrollBars bars, bool centred = true) {
    SetLargeChanges(view, bars);
    view.shp_area.Visible = true;
    PlaceOverviewRectangle(view);
    SetMaxima(view, bars);
    std::int16_t left = 0;
    std::int16_t top = 0;
    if (centred) {
        left = CentredValue(view.MapCenterX, ViewWidth(view) / 2);
        top = CentredValue(view.MapCenterY, ViewHeight(view) / 2);
    }
    view.ScrollSyncSuspended = true;
    bars.h_scroll.SetValue(left);
    bars.v_scroll.SetValue(top);
    view.ScrollSyncSuspended = false;
}

std::int64_t MapPixelUnder(const ScrollState &scroll, int zoom, int screen) {
    return scroll.Value + FloorDiv(screen, zoom);
}

}  // namespace

void ZoomTo100(MapView &view, ScrollBars bars) {
    view.shp_area.Visible = false;
    view.MapZoom = 1;
    SetLargeChanges(view, bars);
    view.zoomMenu = {.inEnabled = true, .outEnabled = false, .checked100 = true};
    SetMaxima(view, bars);
    view.MapCenterX = mapWidth / 2;
    view.MapCenterY = mapHeight / 2;
}

void ZoomTo200(MapView &view, ScrollBars bars) {
    view.MapZoom = 2;
    view.zoomMenu = {.checked200 = true};
    ApplyZoom(view, bars);
}

void ZoomTo400(MapView &view, ScrollBars bars) {
    view.MapZoom = 4;
    view.zoomMenu = {.checked400 = true};
    ApplyZoom(view, bars);
}

void ZoomIn(MapView &view, ScrollBars bars) {
    view.MapZoom = ToInt16(view.MapZoom + 1);
    view.zoomMenu = {.inEnabled = view.zoomMenu.inEnabled && view.MapZoom != largestZoom, .outEnabled = true};
    ApplyZoom(view, bars);
}

void ZoomOut(MapView &view, ScrollBars bars) {
    view.MapZoom = ToInt16(view.MapZoom - 1);
    view.zoomMenu = {.inEnabled = true, .outEnabled = view.zoomMenu.outEnabled && view.MapZoom != 1};
    ApplyZoom(view, bars, view.MapZoom != 1);
}

bool ZoomAt(MapView &view, ScrollBars bars, int steps, int x, int y) {
    const int before = view.MapZoom;
    const std::int64_t mapX = MapPixelUnder(view.h_scroll, before, x);
    const std::int64_t mapY = MapPixelUnder(view.v_scroll, before, y);
    for (; steps > 0 && view.zoomMenu.inEnabled; --steps)
        ZoomIn(view, bars);
    for (; steps < 0 && view.zoomMenu.outEnabled; ++steps)
        ZoomOut(view, bars);
    if (view.MapZoom == before)
        return false;
    bars.h_scroll.SetValue(ToInt16(mapX - FloorDiv(x, view.MapZoom)));
    bars.v_scroll.SetValue(ToInt16(mapY - FloorDiv(y, view.MapZoom)));
    // A scroll bar that has not moved has told no one of the new centre.
    CentreAcross(view);
    CentreDown(view);
    return true;
}

void HScrollChanged(MapView &view, std::int16_t value) {
    view.h_scroll.Value = value;
    PlaceOverviewRectangle(view);
    if (!view.ScrollSyncSuspended)
        CentreAcross(view);
}

void VScrollChanged(MapView &view, std::int16_t value) {
    view.v_scroll.Value = value;
    PlaceOverviewRectangle(view);
    if (!view.ScrollSyncSuspended)
        CentreDown(view);
}

}  // namespace vtr
