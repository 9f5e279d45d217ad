#pragma once

#include <cstdint>
#include <string>

namespace vtr {

/// How many tile types the game knows; a terrain byte has room for 64.
constexpr int tileTypeCount = 59;

/// The type of a terrain byte's tile, 0 to 63.
constexpr int TileTypeOf(std::uint8_t terrainByte) {
    return terrainByte & 63;
}

/// How a terrain byte's tile is turned, in half turns: 0 (north), -0.5 (east), -1 (south) or 0.5 (west).
double TileRotationOf(std::uint8_t terrainByte);

/// The tile type as it stands in a list: "00 - Field8". Throws an index Error outside 0..58.
std::string TileListText(int type);

/// The name of the file that holds the picture of a tile type: "BNWater.pcx". Throws an index Error outside
/// 0..58.
std::string TilePictureFile(int type);

/// The path of that file in the folder of the tile pictures, which stands there without a separator behind
/// it.
std::string TilePicturePath(const std::string &tilesFolder, int type);

}  // namespace vtr
