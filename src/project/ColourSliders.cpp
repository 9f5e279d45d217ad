#include "ColourSliders.h"

#include "Arithmetic.h"

namespace vtr {

std::array<std::int32_t, 3> SliderValues(std::int32_t colour) {
    return {colour % 256, RoundToInt32(colour / 256.0) % 256, RoundToInt32(colour / 256.0 / 256.0)};
}

std::int32_t ColourOfSliders(const std::array<std::int32_t, 3> &sliders) {
    return sliders[0] + 256 * sliders[1] + 65536 * sliders[2];
}

}  // namespace vtr
