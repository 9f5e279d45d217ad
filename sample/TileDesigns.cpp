#include "TileDesigns.h"

#include "MapGrid.h"

namespace vtr {

namespace {

constexpr int north = SideBit(0);
constexpr int east = SideBit(1);
constexpr int south = SideBit(2);
constexpr int west = SideBit(3);

}  // namespace

const std::array<TileDesign, tileTypeCount> tileDesigns{{
    {.name = "Field8", .ground = Ground::Fields, .variant = 8},
    {.name = "Grass", .ground = Ground::Meadow},
    {.name = "Water", .ground = Ground::Water},
    {.name = "Coast1", .ground = Ground::Meadow, .variant = 1, .sea = north},
    {.name = "Coast3", .ground = Ground::Meadow, .variant = 3, .sea = north | east},
    {.name = "Coast2", .ground = Ground::Meadow, .variant = 2, .sea = north},
    {.name = "Field1", .ground = Ground::Fields, .variant = 1},
    {.name = "Field2", .ground = Ground::Fields, .variant = 2},
    {.name = "Field5", .ground = Ground::Fields, .variant = 5},
    {.name = "Field4", .ground = Ground::Fields, .variant = 4},
    {.name = "City1", .ground = Ground::City, .variant = 1},
    {.name = "City2", .ground = Ground::City, .variant = 2},
    {.name = "City3", .ground = Ground::City, .variant = 3},
    {.name = "City4", .ground = Ground::City, .variant = 4},
    {.name = "River1", .ground = Ground::Meadow, .variant = 3, .river = north | south},
    {.name = "River2", .ground = Ground::Meadow, .variant = 7, .river = north | east},
    {.name = "River9", .ground = Ground::Forest, .variant = 5, .river = north | east},
    {.name = "River4", .ground = Ground::Fields, .variant = 2, .river = north | south},
    {.name = "River5", .ground = Ground::Forest, .variant = 4, .river = north | south},
    {.name = "River6", .ground = Ground::Fields, .variant = 5, .river = north | east},
    {.name = "River7", .ground = Ground::Meadow, .variant = 5, .river = north | south},
    {.name = "River8", .ground = Ground::Meadow, .variant = 9, .river = north | east | south | west},
    {.name = "Mount1", .ground = Ground::Mountain, .variant = 1},
    {.name = "Mount4", .ground = Ground::Mountain, .variant = 4},
    {.name = "Mount3", .ground = Ground::Mountain, .variant = 3},
    {.name = "Mount2", .ground = Ground::Mountain, .variant = 2},
    {.name = "Forst4", .ground = Ground::Forest, .variant = 4},
    {.name = "Forst1", .ground = Ground::Forest, .variant = 1},
    {.name = "Forst5", .ground = Ground::Forest, .variant = 5},
    {.name = "Forst6", .ground = Ground::Forest, .variant = 6},
    {.name = "Forst3", .ground = Ground::Forest, .variant = 3},
    {.name = "Forst2", .ground = Ground::Forest, .variant = 2},
    {.name = "Coast4", .ground = Ground::Meadow, .variant = 4, .seaCorner = true},
    {.name = "Coast5", .ground = Ground::Meadow, .variant = 5, .sea = north | east | west},
    {.name = "Road1", .ground = Ground::Meadow, .variant = 1, .road = north | south},
    {.name = "Road2", .ground = Ground::Meadow, .variant = 3, .road = north | east},
    {.name = "Road6", .ground = Ground::Fields, .variant = 1, .road = north | east | south | west},
    {.name = "Road4", .ground = Ground::Fields, .variant = 6, .road = north | east | west},
    {.name = "Field7", .ground = Ground::Fields, .variant = 7},
    {.name = "Road8", .ground = Ground::Meadow, .variant = 2, .road = north},
    {.name = "Road9", .ground = Ground::Fields, .variant = 4, .road = north | south},
    {.name = "Forst7", .ground = Ground::Forest, .variant = 7},
    {.name = "City5", .ground = Ground::City, .variant = 5},
    {.name = "RivrND", .ground = Ground::Meadow, .variant = 1, .river = north},
    {.name = "Coast6", .ground = Ground::Meadow, .variant = 6, .sea = north | south},
    {.name = "Road10", .ground = Ground::Forest, .variant = 3, .road = north | south},
    {.name = "City9", .ground = Ground::City, .variant = 9},
    {.name = "Field6", .ground = Ground::Fields, .variant = 6},
    {.name = "City7", .ground = Ground::City, .variant = 7},
    {.name = "City8", .ground = Ground::City, .variant = 8},
    {.name = "CostU1", .ground = Ground::Mountain, .variant = 1, .sea = north},
    {.name = "CostU2", .ground = Ground::Meadow, .variant = 8, .sea = north | east | south | west},
    {.name = "CostBR", .ground = Ground::Meadow, .variant = 9, .sea = north | south, .road = east | west},
    {.name = "RivrBR", .ground = Ground::Meadow, .variant = 4, .river = north | south, .road = east | west},
    {.name = "RivrFK", .ground = Ground::Meadow, .variant = 2, .river = north | east | west},
    {.name = "CostRV", .ground = Ground::Meadow, .variant = 10, .sea = north, .river = north | south},
    {.name = "RivrTR", .ground = Ground::Meadow, .variant = 6, .river = north | south, .track = east | west},
    {.name = "CostCT", .ground = Ground::City, .variant = 3, .sea = north},
    {.name = "CostTR", .ground = Ground::Meadow, .variant = 11, .sea = north, .road = east | west},
}};

}  // namespace vtr
