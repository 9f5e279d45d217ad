#pragma once

#include "Theatre.h"

namespace vtr {

/// The theatre in the game's tiles: type and orientation of each.
TerrainMap PaintTerrain(const Theatre &theatre);

/// The tiles that city covers: its place and land around it.
std::vector<Point> BuiltUpPlaces(const Theatre &theatre, const City &city);

}  // namespace vtr
