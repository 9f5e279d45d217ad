#include "Canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "Arithmetic.h"

namespace vtr {

namespace {

constexpr std::uint32_t black = 0xFF000000;

constexpr std::int64_t CeilDiv(std::int64_t a, std::int64_t b) {
    return -FloorDiv(-a, b);
}

/// The largest whole number whose square is not above value, for value >= 0.
std::int64_t SquareRoot(std::int64_t value) {
    auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value)));
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

/// The first pixel whose middle lies at or behind a place in half pixels, and the last at or before it.
constexpr std::int64_t FirstPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels, 2);
}
constexpr std::int64_t LastPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels - 1, 2);
}

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

/// A line without its round ends, row by row. It is a rectangle: what lies between its long sides,
/// |dx * down - dy * right| <= radius * length, and its short ones, 0 <= dx * right + dy * down <= length^2,
/// right and down counted from its upper end.
class LineBody {
  public:
    /// The line from upper to lower, in half pixels, from a row of pixels on.
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

void CheckCoordinate(std::int32_t value) {
    if (value < -Canvas::farthest || value > Canvas::farthest)
        throw Error(ErrorKind::Overflow, {.file = {}, .item = "screen position"},
                    "at most " + std::to_string(Canvas::farthest) + " half pixels", std::to_string(value));
}

void CheckPen(const char *what, int value, int largest) {
    if (value < 0 || value > largest)
        throw Error(ErrorKind::Overflow, {.file = {}, .item = what},
                    "0 to " + std::to_string(largest) + " pixels", std::to_string(value));
}

}  // namespace

void Canvas::Stretch(const Picture &source, int left, int top, int zoom) {
    for (int y = 0; y < surface_.height; y += zoom) {
        const int sourceY = top + y / zoom;
        const bool inside = sourceY >= 0 && sourceY < source.height;
        const std::uint32_t *const sourceRow =
            inside ? source.pixels.data() + std::ptrdiff_t{sourceY} * source.width : nullptr;
        const int sourceEnd = inside ? source.width : 0;
        std::uint32_t *const row = Row(y);
        std::uint32_t *const rowEnd = row + surface_.width;
        std::uint32_t *pixel = row;
        if (zoom == 1 && left >= 0 && left < sourceEnd) {
            pixel = std::copy_n(sourceRow + left, std::min(surface_.width, sourceEnd - left), pixel);
        } else {
            for (int x = left; x < sourceEnd && pixel < rowEnd; ++x) {
                const auto run = std::min<std::ptrdiff_t>(zoom, rowEnd - pixel);
                pixel = std::fill_n(pixel, run, x >= 0 ? sourceRow[x] : black);
            }
        }
        std::fill(pixel, rowEnd, black);
        const int lastCopy = std::min(zoom, surface_.height - y);
        for (int copy = 1; copy < lastCopy; ++copy)
            std::copy(row, rowEnd, Row(y + copy));
    }
}

void Canvas::Line(CanvasPoint from, CanvasPoint to, int width, std::uint32_t colour) {
    for (const std::int32_t coordinate : {from.x, from.y, to.x, to.y})
        CheckCoordinate(coordinate);
    CheckPen("line width", width, widest);
    if (width == 1)
        ThinLine(from, to, colour);
    else
        WideLine(from, to, width, colour);
}

void Canvas::ThinLine(CanvasPoint from, CanvasPoint to, std::uint32_t colour) {
    // "Along" is the axis with one pixel a step, "across" the other.
    std::int64_t along = FloorDiv(from.x, 2);
    std::int64_t across = FloorDiv(from.y, 2);
    std::int64_t alongEnd = FloorDiv(to.x, 2);
    std::int64_t acrossEnd = FloorDiv(to.y, 2);
    std::int64_t alongSize = surface_.width;
    std::int64_t acrossSize = surface_.height;
    std::ptrdiff_t alongStride = 1;
    std::ptrdiff_t acrossStride = surface_.width;
    if (std::abs(acrossEnd - across) > std::abs(alongEnd - along)) {
        std::swap(along, across);
        std::swap(alongEnd, acrossEnd);
        std::swap(alongSize, acrossSize);
        std::swap(alongStride, acrossStride);
    }
    if (along > alongEnd) {
        std::swap(along, alongEnd);
        std::swap(across, acrossEnd);
    }

    // After i steps the line is at across + floor((2 * rise * i + length) / (2 * length)).
    const std::int64_t length = alongEnd - along;
    const std::int64_t rise = acrossEnd - across;
    std::int64_t first = std::max<std::int64_t>(-along, 0);
    std::int64_t last = std::min(length, alongSize - 1 - along);
    if (std::min(across, acrossEnd) < 0 || std::max(across, acrossEnd) >= acrossSize) {
        const std::int64_t toFirst = -2 * length * across - length;
        const std::int64_t behindLast = 2 * length * (acrossSize - across) - length;
        if (rise > 0) {
            first = std::max(first, CeilDiv(toFirst, 2 * rise));
            last = std::min(last, CeilDiv(behindLast, 2 * rise) - 1);
        } else if (rise < 0) {
            first = std::max(first, FloorDiv(-behindLast, -2 * rise) + 1);
            last = std::min(last, FloorDiv(-toFirst, -2 * rise));
        } else {
            return;
        }
    }
    if (first > last)
        return;

    const std::int64_t divisor = 2 * length;
    std::int64_t rest = length;
    if (first > 0) {
        const std::int64_t start = 2 * rise * first + length;
        across += FloorDiv(start, divisor);
        rest = FloorMod(start, divisor);
    }
    // Each step goes this far across, or one further when the rests add up to it.
    const std::int64_t tread = rise < 0 ? -1 : rise == length ? 1 : 0;
    const std::int64_t stepRest = 2 * rise - tread * divisor;
    const std::ptrdiff_t stride = alongStride + tread * acrossStride;
    std::uint32_t *pixel = Row(0) + (along + first) * alongStride + across * acrossStride;
    *pixel = colour;
    for (std::int64_t step = first; step < last; ++step) {
        rest += stepRest;
        const bool further = rest >= divisor;
        rest -= further ? divisor : 0;
        pixel += stride + (further ? acrossStride : 0);
        *pixel = colour;
    }
}

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
    // In half pixels, of which the pen's radius has as many as its width has pixels.
    const std::int64_t radius = width;
    if (std::max(from.x, to.x) + radius < 0 ||
        std::min(from.x, to.x) - radius > std::int64_t{2} * surface_.width)
        return;
    const std::int64_t firstRow = std::max<std::int64_t>(FirstPixel(from.y - radius), 0);
    const std::int64_t lastRow = std::min<std::int64_t>(LastPixel(to.y + radius), surface_.height - 1);
    const std::vector<std::int32_t> &roundEnd = RoundEnd(width);
    LineBody body(from, to, radius, firstRow);
    // The body and the two ends together have no gaps in a row, because a line with round ends is convex.
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

void Canvas::Circle(CanvasPoint centre, int radius, int width, std::uint32_t colour) {
    CheckCoordinate(centre.x);
    CheckCoordinate(centre.y);
    CheckPen("circle radius", radius, largestRadius);
    CheckPen("line width", width, widest);
    const std::int64_t outer = 2 * std::int64_t{radius} + width;
    const std::int64_t inner = 2 * std::int64_t{radius} - width;
    const std::int64_t lastRow = std::min<std::int64_t>(LastPixel(centre.y + outer), surface_.height - 1);
    for (std::int64_t row = std::max<std::int64_t>(FirstPixel(centre.y - outer), 0); row <= lastRow; ++row) {
        const std::int64_t offset = 2 * row + 1 - centre.y;
        const std::int64_t half = SquareRoot(outer * outer - offset * offset);
        if (inner <= 0 || std::abs(offset) >= inner) {
            Span(row, FirstPixel(centre.x - half), LastPixel(centre.x + half), colour);
            continue;
        }
        const std::int64_t hole = SquareRoot(inner * inner - offset * offset - 1);
        Span(row, FirstPixel(centre.x - half), LastPixel(centre.x - hole - 1), colour);
        Span(row, FirstPixel(centre.x + hole + 1), LastPixel(centre.x + half), colour);
    }
}

void Canvas::Span(std::int64_t row, std::int64_t first, std::int64_t last, std::uint32_t colour) {
    first = std::max<std::int64_t>(first, 0);
    last = std::min<std::int64_t>(last, surface_.width - 1);
    if (first <= last)
        std::fill_n(Row(row) + first, last - first + 1, colour);
}

}  // namespace vtr
