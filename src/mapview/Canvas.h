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

/// Draws on a picture, in whole numbers and without smoothing, so that the pixels are the same on every
/// machine. What lies outside the picture costs nothing. Colours are 0xFFRRGGBB.
class Canvas {
  public:
    /// Coordinates may reach this many half pixels to every side; lines may be this many pixels wide and
    /// circles have this radius. Beyond, an overflow Error is thrown.
    static constexpr std::int32_t farthest = 8'000'000;
    static constexpr int widest = 128;
    static constexpr int largestRadius = 32767;

    /// The picture must outlive the canvas and keep its size.
    explicit Canvas(Picture &surface) : surface_(surface) {}

    /// Fills the canvas with source, enlarged zoom times from its pixel (left, top) on: pixel (i, j) shows
    /// source's (left + i / zoom, top + j / zoom), and black where source has none. zoom is at least 1.
    void Stretch(const Picture &source, int left, int top, int zoom);

    /// A line of the given width in pixels with round ends: every pixel whose middle lies within width / 2 of
    /// the straight line between the two points. One pixel wide it has one pixel in each column (or, when
    /// steeper than 45 degrees, row) from the pixel that holds one end to the one that holds the other: the
    /// one nearest the line between their middles, of two as near the lower (or right) one.
    void Line(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour);

    /// The outline of a circle, drawn with a pen of the given width: every pixel whose middle lies from
    /// radius - width / 2 to radius + width / 2 from the centre.
    void Circle(CanvasPoint centre, int radius, int width, std::uint32_t colour);

  private:
    void ThinLine(CanvasPoint from, CanvasPoint to, std::uint32_t colour);
    void WideLine(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour);
    std::uint32_t *Row(std::int64_t row) { return surface_.pixels.data() + row * surface_.width; }
    /// The pixels first to last of a row of the canvas, both possibly outside.
    void Span(std::int64_t row, std::int64_t first, std::int64_t last, std::uint32_t colour);
    /// How far a disc of the radius reaches to either side, by the distance of a row from its middle; both in
    /// half pixels.
    const std::vector<std::int32_t> &RoundEnd(int radius);

    Picture &surface_;
    std::vector<std::int32_t> roundEnd_;  ///< of the radius asked for last
};

}  // namespace vtr
