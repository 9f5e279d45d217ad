#include "SelectionMark.h"

#include <algorithm>
#include <cmath>

#include "MapCoordinates.h"

namespace vtr {

namespace {

constexpr int longestArm = 6;

/// How far the corners stand from the item's middle: just outside its ring, which has a radius of 4 map
/// pixels. A ring nearly as large as the viewport or larger has them inside, but outside the item's X.
int DistanceOfCorners(int zoom) {
    const int outsideRing = 3 * zoom + 4;
    constexpr int largestOutside = mapHeight / 2 - 10;
    constexpr int insideRing = 120;
    return outsideRing <= largestOutside ? outsideRing : insideRing;
}

/// The arrow's tip stays so far from the edge that all of the arrow is in view.
constexpr double tipToEdge = 4;

}  // namespace

SelectionMark MarkOf(const MapView &view, int x, int y) {
    if (view.MapZoom == 0 || x < 0 || x >= mapWidth || y < 0 || y >= mapHeight)
        return {};
    const int zoom = view.MapZoom;
    const int left = (x - view.h_scroll.Value) * zoom;
    const int top = (y - view.v_scroll.Value) * zoom;
    const double middleX = left + zoom / 2.0;
    const double middleY = top + zoom / 2.0;
    if (middleX >= 0 && middleX < mapWidth && middleY >= 0 && middleY < mapHeight) {
        const int toCorner = DistanceOfCorners(zoom);
        return {.corners =
                    SelectionMark::Corners{left + zoom / 2 - toCorner, top + zoom / 2 - toCorner,
                                           left + (zoom - 1) / 2 + toCorner, top + (zoom - 1) / 2 + toCorner,
                                           std::min(zoom + 2, longestArm)},
                .arrow = {}};
    }
    const double dx = middleX - mapWidth / 2.0;
    const double dy = middleY - mapHeight / 2.0;
    const double toEdge =
        std::min((mapWidth / 2.0 - tipToEdge) / std::abs(dx), (mapHeight / 2.0 - tipToEdge) / std::abs(dy));
    const double length = std::hypot(dx, dy);
    return {.corners = {},
            .arrow = SelectionMark::Arrow{mapWidth / 2.0 + dx * toEdge, mapHeight / 2.0 + dy * toEdge,
                                          dx / length, dy / length}};
}

}  // namespace vtr
