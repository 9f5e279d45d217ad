#pragma once

#include <array>
#include <cstdint>

namespace vtr {

/// The values of the red, green and blue slider for a colour. Green and blue are rounded, not cut off, so
/// they can be one too high (blue up to 256 for a colour of 24 bits). A negative colour makes all values
/// negative. The window keeps them within 0 to 255.
std::array<std::int32_t, 3> SliderValues(std::int32_t colour);
/// The colour of a red, green and blue slider, each 0 to 255.
std::int32_t ColourOfSliders(const std::array<std::int32_t, 3> &sliders);

}  // namespace vtr
