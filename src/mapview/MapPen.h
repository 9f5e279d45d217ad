#pragma once

#include <cstdint>

#include "Canvas.h"
#include "MapCoordinates.h"

namespace vtr {

/// The canvas colour of a preference colour (red + 256 * green + 65536 * blue).
constexpr std::uint32_t CanvasColour(std::int32_t preferenceColour) {
    const auto bits = static_cast<std::uint32_t>(preferenceColour);
    return 0xFF000000 | (bits & 0xFF) << 16 | (bits & 0xFF00) | (bits >> 16 & 0xFF);
}

/// The place of a screen point on the canvas: at 100% the middle of its pixel.
CanvasPoint PointOnCanvas(const MapView &view, const ScreenPoint &point);

/// Draws on the map in one colour, with a pen as wide as one map pixel on the screen.
class MapPen {
  public:
    MapPen(Canvas &canvas, const MapView &view, std::int32_t preferenceColour)
        : canvas_(canvas), view_(view), colour_(CanvasColour(preferenceColour)) {}

    /// Draws the straight line between two map pixels. When both are off-screen, draws nothing and returns
    /// false.
    bool Segment(std::int16_t x1, std::int16_t y1, std::int16_t x2, std::int16_t y2);
    /// Draws a circle around a map pixel with a radius of 4 map pixels.
    void Ring(std::int16_t x, std::int16_t y);

  private:
    Canvas &canvas_;
    const MapView &view_;
    std::uint32_t colour_;
};

/// The radius in screen pixels of the rings that mark what is selected. Throws an overflow Error.
int RingRadius(const MapView &view);

}  // namespace vtr
