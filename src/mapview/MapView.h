#pragma once

#include <cstdint>
#include <string>

#include "TerrainMap.h"

namespace vtr {

/// The overview `Img_SmallMap` is smaller than the map by this factor.
constexpr int overviewScale = 4;

/// A copy of what a scroll bar holds, in map pixels; its Min is always 0.
struct ScrollState {
    std::int16_t Value = 0;
    std::int16_t Max = 0;
    std::int16_t LargeChange = 1;

    bool operator==(const ScrollState &) const = default;
};

/// The rectangle over the overview that marks what the viewport shows, in pixels of `Img_SmallMap`, rounded
/// half to even.
struct OverviewRectangle {
    bool Visible = false;
    std::int16_t Left = 0;
    std::int16_t Top = 0;
    std::int16_t Width = 0;
    std::int16_t Height = 0;

    bool operator==(const OverviewRectangle &) const = default;
};

/// Which entries of the zoom menu are enabled and checked after a zoom command.
struct ZoomMenuState {
    bool inEnabled = true;
    bool outEnabled = true;
    bool checked100 = false;
    bool checked200 = false;
    bool checked400 = false;

    bool operator==(const ZoomMenuState &) const = default;
};

/// What the map shows of the campaign and at which size.
struct MapView {
    std::int16_t MapZoom = 0;     ///< 1 to 100, 1 = 100%; 0 before the first project is loaded
    std::int16_t MapCenterX = 0;  ///< the map point in the middle of the viewport
    std::int16_t MapCenterY = 0;
    ScrollState h_scroll;  ///< the values are the map point in the viewport's top left corner
    ScrollState v_scroll;
    bool ScrollSyncSuspended = false;  ///< a zoom command is scrolling: the centre stays
    OverviewRectangle shp_area;
    ZoomMenuState zoomMenu{.checked100 = true};
    std::int16_t ViewFrontline = 0;  ///< the frontline shown while no frontline is being edited
    bool TargetFlashPhase = false;   ///< true: the next redraw draws the ring of the selected target

    bool operator==(const MapView &) const = default;
};

/// The magnification for the status bar: "300%".
std::string ZoomText(const MapView &view);
/// The map point under the viewport's point (x, y) for the status bar: "( 312,  97)".
std::string CursorText(const MapView &view, float x, float y);

}  // namespace vtr
