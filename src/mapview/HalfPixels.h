#pragma once

#include <cmath>
#include <cstdint>

#include "Arithmetic.h"

namespace vtr {

/// The largest whole number whose square is not above value, for value >= 0.
inline std::int64_t SquareRoot(std::int64_t value) {
    auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value)));
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

/// The first pixel whose middle lies at halfPixels or after it, and the last whose middle lies at it or
/// before.
constexpr std::int64_t FirstPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels, 2);
}
constexpr std::int64_t LastPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels - 1, 2);
}

}  // namespace vtr
