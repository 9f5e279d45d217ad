#pragma once

#include <string>

#include "MapCoordinates.h"

namespace vtr {

/// How far one place of the map lies from another, and in which direction.
struct Measurement {
    double kilometres = 0;
    /// In whole degrees clockwise from north, which is up: 0 to 359. 0 when both places are the same.
    int bearing = 0;
};

Measurement Measure(const MapPlace &from, const MapPlace &to);

/// "57.4 km, 135\u00B0" in UTF-8, without a bearing when both places are the same.
std::string MeasurementText(const Measurement &measurement);

}  // namespace vtr
