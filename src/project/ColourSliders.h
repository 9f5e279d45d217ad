#pragma once

#include <array>
#include <cstdint>

namespace vtr {

/// The values at which the red, green and blue slider open for a colour. Green and blue are rounded and not
/// cut, so that they can be a step high (blue up to 256 for a colour within 24 bits); all have the sign of a
/// negative colour. The window holds them within 0 to 255.
std::array<std::int32_t, 3> SliderValues(std::int32_t colour);
/// The colour of a red, green and blue slider, each 0 to 255.
std::int32_t ColourOfSliders(const std::array<std::int32_t, 3> &sliders);

}  // namespace vtr
