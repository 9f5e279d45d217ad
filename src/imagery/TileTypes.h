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

/// How a tile is turned, numbered as in the high two bits of a terrain byte.
enum class Orientation : std::uint8_t { North, East, South, West };

/// How a terrain byte's tile is turned.
constexpr Orientation TileOrientationOf(std::uint8_t terrainByte) {
    return static_cast<Orientation>(terrainByte >> 6);
}

/// How far a tile is turned: 0 (north), -0.5 (east), -1 (south) or 0.5 (west).
double HalfTurnsOf(Orientation orientation);

/// The tile type as it stands in a list: "00 - Field8". Throws an index Error outside 0..58.
std::string TileListText(int type);

/// The name of the file that holds the picture of a tile type: "BNWater.pcx". Throws an index Error outside
/// 0..58.
std::string TilePictureFile(int type);

/// The path of that file in tilesFolder, which has no separator at its end.
std::string TilePicturePath(const std::string &tilesFolder, int type);

}  // namespace vtr
