#include "FineOffsetMaker.h"

#include "GamePosition.h"
#include "Noise.h"

namespace vtr {

double FineOffsetAt(Point place, std::uint32_t seed) {
    constexpr int partsOfTile = 4 << 16;
    const auto part = static_cast<int>(Hash(place.x, place.y, seed) % partsOfTile);
    // Exact: part is divided by a power of two, and the product has at most 31 bits.
    return static_cast<double>(part) / partsOfTile * tileMetres;
}

}  // namespace vtr
