#pragma once

#include "Theatre.h"

namespace vtr {

/// Raises the land out of the sea: height, landmass and coast.
void ShapeLand(Theatre &theatre);
/// Lets the water run off the land: downstream and catchment.
void RunRivers(Theatre &theatre);
/// Draws the borders: country.
void DrawBorders(Theatre &theatre);
/// Lets the forests grow: woods.
void GrowWoods(Theatre &theatre);

}  // namespace vtr
