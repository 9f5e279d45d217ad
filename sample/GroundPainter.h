#pragma once

#include <algorithm>

#include "Bytes.h"
#include "MapGrid.h"
#include "TileDesigns.h"

namespace vtr {

/// The ramps of the tiles' palette.
enum class Ramp : std::uint8_t {
    Sea,
    Shallow,
    Sand,
    Grass,
    Meadow,
    Wheat,
    Soil,
    Crop,
    Forest,
    DeepForest,
    Rock,
    Snow,
    Roof,
    Concrete,
    Asphalt,
    Hedge
};
constexpr std::size_t rampTotal = 16;
constexpr int shadeTotal = 16;

/// The palette index of a shade, 0 dark to 15 light. A shade outside counts as the darkest or lightest.
constexpr std::uint8_t Shade(Ramp ramp, int shade) {
    return static_cast<std::uint8_t>(static_cast<int>(ramp) * shadeTotal +
                                     std::clamp(shade, 0, shadeTotal - 1));
}

/// The open sea with its waves at a place of a tile.
std::uint8_t WaterAt(Point at);

/// A tile's ground, 256 x 256 palette indices.
Bytes PaintGround(Ground ground, int variant);

}  // namespace vtr
