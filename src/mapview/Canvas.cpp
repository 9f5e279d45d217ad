#include "Canvas.h"

#include <algorithm>
#include <cstdlib>

#include "Arithmetic.h"
#include "HalfPixels.h"

namespace vtr {

namespace {

constexpr std::uint32_t black = 0xFF000000;

constexpr std::int64_t CeilDiv(std::int64_t a, std::int64_t b) {
    return -FloorDiv(-a, b);
}

struct StepRange {
    std::int64_t first;
    std::int64_t last;
};

/// The steps of a thin line that lie on the canvas. When none does, first is larger than last. The line goes
/// length steps along and rises by rise across: after i steps it is at
/// across + floor((2 * rise * i + length) / (2 * length)).
StepRange StepsOnCanvas(std::int64_t length, std::int64_t rise, std::int64_t along, std::int64_t alongSize,
                        std::int64_t across, std::int64_t acrossSize) {
    const std::int64_t first = std::max<std::int64_t>(-along, 0);
    const std::int64_t last = std::min(length, alongSize - 1 - along);
    if (std::min(across, across + rise) >= 0 && std::max(across, across + rise) < acrossSize)
        return {first, last};
    const std::int64_t toFirst = -2 * length * across - length;
    const std::int64_t behindLast = 2 * length * (acrossSize - across) - length;
    if (rise > 0)
        return {std::max(first, CeilDiv(toFirst, 2 * rise)),
                std::min(last, CeilDiv(behindLast, 2 * rise) - 1)};
    if (rise < 0)
        return {std::max(first, FloorDiv(-behindLast, -2 * rise) + 1),
                std::min(last, FloorDiv(-toFirst, -2 * rise))};
    return {1, 0};
}

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

    const std::int64_t length = alongEnd - along;
    const std::int64_t rise = acrossEnd - across;
    const auto [first, last] = StepsOnCanvas(length, rise, along, alongSize, across, acrossSize);
    if (first > last)
        return;

    const std::int64_t divisor = 2 * length;
    std::int64_t rest = length;
    if (first > 0) {
        const std::int64_t start = 2 * rise * first + length;
        across += FloorDiv(start, divisor);
        rest = FloorMod(start, divisor);
    }
    // Each step moves by tread across, and by one more when the rests add up to a whole pixel.
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
