#include <cstring>

#include "Arithmetic.h"
#include "TerrainMap.h"
#include "TileTypes.h"

// The tile at any position, and what is shown of it: two doubles, then the first bytes of the terrain.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    double position[2];
    if (size < sizeof position)
        return 0;
    std::memcpy(position, bytes, sizeof position);
    vtr::TerrainMap map(bytes + sizeof position, bytes + size);
    map.resize(vtr::terrainSize);
    try {
        const std::uint8_t tile = vtr::TerrainByte(map, position[0], position[1]);
        vtr::HalfTurnsOf(vtr::TileOrientationOf(tile));
        vtr::TilePicturePath("tiles", vtr::TileTypeOf(tile));
    } catch (const vtr::Error &) {
    }
    return 0;
}
