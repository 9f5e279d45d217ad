#pragma once

#include "PcxEncoder.h"
#include "TileDesigns.h"

namespace vtr {

constexpr int tileEdge = 256;

/// The colours that all tiles share: 16 ramps of 16 shades from dark to light.
Palette TilePalette();

/// The picture of a tile, 256 x 256 palette indices, north on top.
Bytes PaintTile(const TileDesign &design);

}  // namespace vtr
