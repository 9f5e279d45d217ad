#pragma once

#include <functional>

#include "Picture.h"

namespace vtr {

/// The angle in radians of a rotation in half turns.
constexpr double AngleOfHalfTurns(double rotation) {
    return rotation * 3.14159265359;
}

/// Draws source, turned by angle (radians) about its centre, into the middle of destination, another picture:
/// four pixels a quarter turn apart at a time, in columns from the centre outwards. Destination pixels whose
/// source lies outside keep what they hold, and so do column 0 and row 0. Calls afterColumn after each
/// column.
void RotatePicture(const Picture &source, Picture &destination, double angle,
                   const std::function<void()> &afterColumn = {});

}  // namespace vtr
