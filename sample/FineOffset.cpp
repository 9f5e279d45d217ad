#include "FineOffset.h"

#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

std::string FineOffsetAt(Point place, std::uint32_t seed) {
    constexpr int partsOfTile = 4 << 16;
    const auto part = static_cast<int>(Hash(place.x, place.y, seed) % partsOfTile);
    // Exact: the product fits in 31 bits and is divided by a power of two.
    return ShortestText(part * 4100.0 / partsOfTile);
}

}  // namespace vtr
