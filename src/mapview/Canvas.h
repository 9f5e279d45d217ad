#pragma once

#include <cstdint>
#include <vector>

#include "Picture.h"

namespace vtr {

/// A place on a Canvas in half pixels from its top left corner, so that both the corners (even) and the
/// middles (odd) of pixels can be named: pixel (i, j) has its middle at (2i + 1, 2j + 1).
struct CanvasPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const CanvasPoint &) const = default;
};

/// Draws on a picture in whole numbers and without smoothing, so that every machine draws the same pixels.
/// Whatever lies outside the picture is cut off and takes no time. Colours are 0xFFRRGGBB.
class Canvas {
  public:
    /// The largest coordinate in half pixels, line width in pixels and circle radius in pixels. Anything
    /// larger throws an overflow Error.
    static constexpr std::int32_t farthest = 8'000'000;
    static constexpr int widest = 128;
    static constexpr int largestRadius = 32767;

    /// The picture must outlive the canvas and keep its size.
    explicit Canvas(Picture &surface) : surface_(surface) {}

    /// Fills the canvas with source enlarged zoom times: pixel (i, j) shows pixel (left + i / zoom, top + j /
    /// zoom) of source, or black where source has no such pixel. zoom is at least 1.
    void Stretch(const Picture &source, int left, int top, int zoom);

    /// Draws a line with round ends: every pixel whose middle lies within width / 2 of the straight line
    /// between the two points. A line of width 1 has one pixel in each column from one end to the other, or
    /// in each row when it is steeper than 45 degrees: the pixel that is nearest to the line between the
    /// middles of the end pixels. Of two that are equally near, it takes the lower (or right) one.
    void Line(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour);

    /// Draws the outline of a circle: every pixel whose middle lies from radius - width / 2 to radius +
    /// width / 2 from the centre.
    void Circle(CanvasPoint centre, int radius, int width, std::uint32_t colour);

  private:
    void ThinLine(CanvasPoint from, CanvasPoint to, std::uint32_t colour);
    void WideLine(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour);
    std::uint32_t *Row(std::int64_t row) { return surface_.pixels.data() + row * surface_.width; }
    /// Fills the pixels first to last of a row of the canvas. Both may lie outside it.
    void Span(std::int64_t row, std::int64_t first, std::int64_t last, std::uint32_t colour);
    /// How far a disc reaches to either side, for each distance of a row from its middle. All lengths are in
    /// half pixels.
    const std::vector<std::int32_t> &RoundEnd(int radius);

    Picture &surface_;
    std::vector<std::int32_t> roundEnd_;  ///< what RoundEnd gave last
};

}  // namespace vtr
