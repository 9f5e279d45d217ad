#include "MapView.h"

#include <array>
#include <charconv>

#include "MapCoordinates.h"

namespace vtr {

namespace {

/// The shortest decimal text of value, with a blank in front when there is no minus sign.
std::string SignedText(float value) {
    std::array<char, 64> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed).ptr;
    std::string text(digits.data(), end);
    if (value == 0)
        text = "0";
    return value < 0 ? text : " " + text;
}

}  // namespace

std::string ZoomText(const MapView &view) {
    return std::to_string(view.MapZoom * 100) + "%";
}

std::string CursorText(const MapView &view, float x, float y) {
    const MapPoint point = ScreenToMap(view, x, y);
    return "(" + SignedText(point.x) + ", " + SignedText(point.y) + ")";
}

}  // namespace vtr
