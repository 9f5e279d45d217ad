#pragma once

#include <cstdint>
#include <vector>

namespace vtr {

/// Noise over a tile that continues without a seam on the next tile of the same kind. It adds value noise
/// with hills of size pixels (a power of two) and of half and a quarter of that: about -1792 to 1792 in all.
class TileTexture {
  public:
    TileTexture(int size, std::uint32_t seed);

    /// x and y may be any numbers: the texture has no end.
    int At(int x, int y) const {
        const int index = (y & 255) * 256 + (x & 255);
        return values_[static_cast<std::size_t>(index)];
    }

  private:
    std::vector<std::int16_t> values_;
};

/// The hills and hollows of the ground.
const TileTexture &CoarseTexture();
/// Its grain: tufts, stones, ripples.
const TileTexture &FineTexture();

}  // namespace vtr
