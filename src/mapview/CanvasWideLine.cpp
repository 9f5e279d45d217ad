#include <algorithm>
#include <cstdlib>

#include "Arithmetic.h"
#include "Canvas.h"
#include "HalfPixels.h"

namespace vtr {

namespace {

/// floor((start + step * i) / divisor) for i = 0, 1, 2 and so on, dividing only at the beginning.
class Stair {
  public:
    Stair() = default;
    Stair(std::int64_t start, std::int64_t step, std::int64_t divisor)
        : value_(FloorDiv(start, divisor)),
          rest_(start - value_ * divisor),
          tread_(FloorDiv(step, divisor)),
          stepRest_(step - tread_ * divisor),
          divisor_(divisor) {}

    std::int64_t Next() {
        const std::int64_t value = value_;
        value_ += tread_;
        rest_ += stepRest_;
        if (rest_ >= divisor_) {
            rest_ -= divisor_;
            ++value_;
        }
        return value;
    }

  private:
    std::int64_t value_ = 0;
    std::int64_t rest_ = 0;
    std::int64_t tread_ = 0;
    std::int64_t stepRest_ = 0;
    std::int64_t divisor_ = 1;
};

struct PixelRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

constexpr PixelRange noPixels{INT32_MAX, INT32_MIN};

/// A line without its round ends, row by row: a rectangle. With right and down counted from the line's upper
/// end, a point lies between the long sides when |dx * down - dy * right| <= radius * length, and between the
/// short sides when 0 <= dx * right + dy * down <= length^2.
class LineBody {
  public:
    /// The line from upper to lower. NextRow starts with the row of pixels firstRow.
    LineBody(CanvasPoint upper, CanvasPoint lower, std::int64_t radius, std::int64_t firstRow)
        : upper_(upper), lower_(lower), radius_(radius), middle_(2 * firstRow + 1) {
        if (upper.x == lower.x || upper.y == lower.y)
            return;
        const std::int64_t dx = std::int64_t{lower.x} - upper.x;
        const std::int64_t dy = std::int64_t{lower.y} - upper.y;
        const std::int64_t run = std::abs(dx);
        const std::int64_t down = middle_ - upper.y;
        const std::int64_t squaredLength = dx * dx + dy * dy;

        const std::int64_t longSides = dy * (upper.x - 1) + dx * down;
        const std::int64_t reach = SquareRoot(radius * radius * squaredLength);
        longLeft_ = Stair(longSides - reach + 2 * dy - 1, 2 * dx, 2 * dy);
        longRight_ = Stair(longSides + reach, 2 * dx, 2 * dy);

        const std::int64_t fall = dx > 0 ? -dy : dy;
        const std::int64_t shortSides = run * (upper.x - 1) + fall * down;
        shortLeft_ = Stair(shortSides - (dx > 0 ? 0 : squaredLength) + 2 * run - 1, 2 * fall, 2 * run);
        shortRight_ = Stair(shortSides + (dx > 0 ? squaredLength : 0), 2 * fall, 2 * run);
    }

    PixelRange NextRow() {
        const std::int64_t middle = middle_;
        middle_ += 2;
        if (upper_.x == lower_.x) {
            if (middle < upper_.y || middle > lower_.y)
                return noPixels;
            return {FirstPixel(upper_.x - radius_), LastPixel(upper_.x + radius_)};
        }
        if (upper_.y == lower_.y)
            return {FirstPixel(std::min(upper_.x, lower_.x)), LastPixel(std::max(upper_.x, lower_.x))};
        const PixelRange range{std::max(longLeft_.Next(), shortLeft_.Next()),
                               std::min(longRight_.Next(), shortRight_.Next())};
        return range.first <= range.last ? range : noPixels;
    }

  private:
    CanvasPoint upper_;
    CanvasPoint lower_;
    std::int64_t radius_;
    std::int64_t middle_;  ///< of the next row
    Stair longLeft_;
    Stair longRight_;
    Stair shortLeft_;
    Stair shortRight_;
};

}  // namespace

const std::vector<std::int32_t> &Canvas::RoundEnd(int radius) {
    if (roundEnd_.size() != static_cast<std::size_t>(radius) + 1) {
        roundEnd_.clear();
        for (int offset = 0; offset <= radius; ++offset)
            roundEnd_.push_back(static_cast<std::int32_t>(
                SquareRoot(std::int64_t{radius} * radius - std::int64_t{offset} * offset)));
    }
    return roundEnd_;
}

void Canvas::WideLine(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour) {
    if (from.y > to.y)
        std::swap(from, to);
    // The radius in half pixels is the same number as the width in pixels.
    const std::int64_t radius = width;
    if (std::max(from.x, to.x) + radius < 0 ||
        std::min(from.x, to.x) - radius > std::int64_t{2} * surface_.width)
        return;
    const std::int64_t firstRow = std::max<std::int64_t>(FirstPixel(from.y - radius), 0);
    const std::int64_t lastRow = std::min<std::int64_t>(LastPixel(to.y + radius), surface_.height - 1);
    const std::vector<std::int32_t> &roundEnd = RoundEnd(width);
    LineBody body(from, to, radius, firstRow);
    // A row of the body and the two ends has no gaps, because a line with round ends is convex.
    for (std::int64_t row = firstRow; row <= lastRow; ++row) {
        PixelRange covered = body.NextRow();
        for (const CanvasPoint end : {from, to}) {
            const std::int64_t offset = std::abs(2 * row + 1 - end.y);
            if (offset > radius)
                continue;
            const std::int64_t half = roundEnd[static_cast<std::size_t>(offset)];
            covered.first = std::min(covered.first, FirstPixel(end.x - half));
            covered.last = std::max(covered.last, LastPixel(end.x + half));
        }
        Span(row, covered.first, covered.last, colour);
    }
}

}  // namespace vtr
