#pragma once

#include <cstdint>

#include "Arithmetic.h"

namespace vtr {

/// The first pixel whose middle lies at halfPixels or after it, and the last whose middle lies at it or
/// before.
constexpr std::int64_t FirstPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels, 2);
}
constexpr std::int64_t LastPixel(std::int64_t halfPixels) {
    return FloorDiv(halfPixels - 1, 2);
}

}  // namespace vtr
