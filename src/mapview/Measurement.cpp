#include "Measurement.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "Arithmetic.h"
#include "GamePosition.h"

namespace vtr {

Measurement Measure(const MapPlace &from, const MapPlace &to) {
    const double east = to.x - from.x;
    const double north = from.y - to.y;
    const double degrees = std::atan2(east, north) * 180 / std::numbers::pi;
    return {std::hypot(east, north) * tileMetres / 1000,
            static_cast<int>(FloorMod(RoundToInt32(degrees), 360))};
}

std::string MeasurementText(const Measurement &measurement) {
    std::array<char, 400> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), measurement.kilometres,
                                   std::chars_format::fixed, 1)
                         .ptr;
    std::string distance = std::string(digits.data(), end) + " km";
    if (measurement.kilometres == 0)
        return distance;
    return distance + ", " + std::to_string(measurement.bearing) + "\u00B0";
}

}  // namespace vtr
