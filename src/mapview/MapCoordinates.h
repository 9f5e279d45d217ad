#pragma once

#include "MapView.h"

namespace vtr {

/// A point of the map in map pixels.
struct MapPoint {
    float x = 0;
    float y = 0;
};

/// A point of the viewport. At 100% its coordinates name a pixel. At a larger zoom, pixel i reaches from i to
/// i + 1.
struct ScreenPoint {
    float x = 0;
    float y = 0;
    bool visible = false;
};

/// The map point under the viewport's point (x, y): (x, y) itself at 100%, else the map pixel there. Throws
/// an overflow Error when a coordinate does not fit 32 bits.
MapPoint ScreenToMap(const MapView &view, float x, float y);

/// The viewport's point that shows the middle of a map pixel. It is visible when it lies within the viewport.
/// At 100% every point counts as visible.
inline ScreenPoint MapToScreen(const MapView &view, float x, float y) {
    if (view.MapZoom == 1)
        return {x, y, true};
    const float zoom = view.MapZoom;
    const float screenX = (x - static_cast<float>(view.h_scroll.Value)) * zoom + zoom * 0.5F;
    const float screenY = (y - static_cast<float>(view.v_scroll.Value)) * zoom + zoom * 0.5F;
    // & is faster than && here: the processor cannot predict on which side of the screen a point lies.
    const bool visible =
        bool((screenX >= 0) & (screenX < float{mapWidth}) & (screenY >= 0) & (screenY < float{mapHeight}));
    return {screenX, screenY, visible};
}

/// A point of the map in fractions of map pixels: the middle of pixel 3 lies at 3.5.
struct MapPlace {
    double x = 0;
    double y = 0;
};

/// The place that the middle of the viewport's pixel (x, y) shows.
MapPlace PlaceUnder(const MapView &view, int x, int y);

/// How many map pixels the viewport shows across and down.
double ViewWidth(const MapView &view);
double ViewHeight(const MapView &view);

}  // namespace vtr
