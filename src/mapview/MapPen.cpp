#include "MapPen.h"

#include <cmath>

#include "Arithmetic.h"

namespace vtr {

namespace {

/// A screen ordinate in half pixels. This is a whole number, because map positions are whole numbers.
std::int32_t HalfPixels(float ordinate) {
    const float doubled = ordinate * 2;
    if (std::abs(doubled) < static_cast<float>(Canvas::farthest))
        return static_cast<std::int32_t>(doubled);
    return RoundToInt32(doubled);
}

}  // namespace

CanvasPoint PointOnCanvas(const MapView &view, const ScreenPoint &point) {
    const std::int32_t toMiddle = view.MapZoom == 1 ? 1 : 0;
    return {HalfPixels(point.x) + toMiddle, HalfPixels(point.y) + toMiddle};
}

bool MapPen::Segment(std::int16_t x1, std::int16_t y1, std::int16_t x2, std::int16_t y2) {
    const ScreenPoint from = MapToScreen(view_, x1, y1);
    const ScreenPoint to = MapToScreen(view_, x2, y2);
    if (!from.visible && !to.visible)
        return false;
    canvas_.Line(PointOnCanvas(view_, from), PointOnCanvas(view_, to), view_.MapZoom, colour_);
    return true;
}

void MapPen::Ring(std::int16_t x, std::int16_t y) {
    canvas_.Circle(PointOnCanvas(view_, MapToScreen(view_, x, y)), RingRadius(view_), view_.MapZoom, colour_);
}

int RingRadius(const MapView &view) {
    return ToInt16(std::int64_t{4} * view.MapZoom);
}

}  // namespace vtr
