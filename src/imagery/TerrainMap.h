#pragma once

#include <string>

#include "Bytes.h"
#include "Errors.h"

namespace vtr {

/// The map in pixels at 100%, one a terrain tile. The viewport `Img_Map` has as many screen pixels.
constexpr int mapWidth = 640;
constexpr int mapHeight = 320;
constexpr std::size_t terrainSize = std::size_t{mapWidth} * mapHeight;

/// 320 rows of 640 tiles, row 0 first: low 6 bits the tile type (0 to 58), high 2 bits the orientation.
using TerrainMap = Bytes;

/// Reads up to terrainSize bytes of the file at path into map and returns how many it has read. Missing bytes
/// count as zero. An empty path leaves map as it is and returns terrainSize. Throws file-missing and
/// file-access Errors.
std::size_t ReadTerrainMap(const std::string &path, TerrainMap &map);

/// The byte of the tile in column x, row y. Throws an index Error when y * 640 + x is not below terrainSize.
std::uint8_t TerrainByte(const TerrainMap &map, double x, double y, const Place &place = {});

}  // namespace vtr
