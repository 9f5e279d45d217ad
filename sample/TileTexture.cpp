#include "TileTexture.h"

#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

TileTexture::TileTexture(int size, std::uint32_t seed) {
    values_.reserve(std::size_t{256} * 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            int sum = 0;
            for (int octave = 0; octave < 3; ++octave)
                sum += Noise(x, y, size >> octave, seed, 256) / (1 << octave);
            values_.push_back(ToInt16(sum));
        }
}

const TileTexture &CoarseTexture() {
    static const TileTexture texture(64, 201);
    return texture;
}

const TileTexture &FineTexture() {
    static const TileTexture texture(8, 301);
    return texture;
}

}  // namespace vtr
