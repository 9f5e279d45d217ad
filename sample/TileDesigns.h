#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "TileTypes.h"

namespace vtr {

/// The tile types by their names, in the game's own numbering.
enum class Tile : std::uint8_t {
    Field8,
    Grass,
    Water,
    Coast1,
    Coast3,
    Coast2,
    Field1,
    Field2,
    Field5,
    Field4,
    City1,
    City2,
    City3,
    City4,
    River1,
    River2,
    River9,
    River4,
    River5,
    River6,
    River7,
    River8,
    Mount1,
    Mount4,
    Mount3,
    Mount2,
    Forst4,
    Forst1,
    Forst5,
    Forst6,
    Forst3,
    Forst2,
    Coast4,
    Coast5,
    Road1,
    Road2,
    Road6,
    Road4,
    Field7,
    Road8,
    Road9,
    Forst7,
    City5,
    RivrND,
    Coast6,
    Road10,
    City9,
    Field6,
    City7,
    City8,
    CostU1,
    CostU2,
    CostBR,
    RivrBR,
    RivrFK,
    CostRV,
    RivrTR,
    CostCT,
    CostTR
};

enum class Ground : std::uint8_t { Water, Meadow, Fields, Forest, Mountain, City };

/// What a tile shows when it is not turned (north on top). Sets of sides as in MapGrid.h.
struct TileDesign {
    std::string_view name;
    Ground ground;
    int variant = 0;         ///< tells tiles of the same kind apart
    int sea = 0;             ///< the sides along which the sea lies
    bool seaCorner = false;  ///< the sea only touches the north-east corner
    int river = 0;           ///< the sides through which a river runs
    int road = 0;            ///< the sides through which a road runs
    int track = 0;           ///< the sides through which a railway runs
};

extern const std::array<TileDesign, tileTypeCount> tileDesigns;

}  // namespace vtr
