#include "TerrainMap.h"

#include "Arithmetic.h"
#include "WholeFile.h"

namespace vtr {

std::size_t ReadTerrainMap(const std::string &path, TerrainMap &map) {
    if (path.empty())
        return terrainSize;
    map = ReadStartOfFile(path, terrainSize);
    const std::size_t found = map.size();
    map.resize(terrainSize);
    return found;
}

std::uint8_t TerrainByte(const TerrainMap &map, double x, double y, const Place &place) {
    return map[CheckIndex(RoundToInt32(y * mapWidth + x, place), terrainSize, place)];
}

}  // namespace vtr
