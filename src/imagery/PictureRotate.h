#pragma once

#include <functional>

#include "Picture.h"

namespace vtr {

/// The angle in radians.
constexpr double AngleOfHalfTurns(double rotation) {
    return rotation * 3.14159265359;
}

/// Draws source, turned by angle (radians) about its centre, into the middle of destination, which is another
/// picture. Draws in columns from the centre outwards, always four pixels a quarter turn apart, and calls
/// afterColumn after each column. Column 0, row 0 and pixels whose source lies outside keep what they hold.
void RotatePicture(const Picture &source, Picture &destination, double angle,
                   const std::function<void()> &afterColumn = {});

}  // namespace vtr
