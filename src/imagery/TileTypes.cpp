#include "TileTypes.h"

#include <array>
#include <string_view>

#include "Arithmetic.h"
#include "Paths.h"

namespace vtr {

namespace {

// The game's own numbering: neither alphabetical nor grouped.
constexpr std::array<std::string_view, tileTypeCount> tileNames = {
    "Field8", "Grass",  "Water",  "Coast1", "Coast3", "Coast2", "Field1", "Field2", "Field5", "Field4",
    "City1",  "City2",  "City3",  "City4",  "River1", "River2", "River9", "River4", "River5", "River6",
    "River7", "River8", "Mount1", "Mount4", "Mount3", "Mount2", "Forst4", "Forst1", "Forst5", "Forst6",
    "Forst3", "Forst2", "Coast4", "Coast5", "Road1",  "Road2",  "Road6",  "Road4",  "Field7", "Road8",
    "Road9",  "Forst7", "City5",  "RivrND", "Coast6", "Road10", "City9",  "Field6", "City7",  "City8",
    "CostU1", "CostU2", "CostBR", "RivrBR", "RivrFK", "CostRV", "RivrTR", "CostCT", "CostTR"};

std::string_view TileName(int type) {
    return tileNames[CheckIndex(type, tileNames.size(), {.item = "tile type", .index = type})];
}

}  // namespace

double HalfTurnsOf(Orientation orientation) {
    constexpr std::array<double, 4> halfTurns = {0, -0.5, -1.0, 0.5};
    return halfTurns[static_cast<std::size_t>(orientation)];
}

std::string TileListText(int type) {
    const std::string name(TileName(type));
    return (type < 10 ? "0" : "") + std::to_string(type) + " - " + name;
}

std::string TilePictureFile(int type) {
    std::string name(TileName(type));
    if (name == "City1")
        name = "Alcty";
    else if (name.starts_with("City"))
        name = std::string("Alcty") + name.back();
    return "BN" + name + ".pcx";
}

std::string TilePicturePath(const std::string &tilesFolder, int type) {
    return tilesFolder + SeparatorOf(tilesFolder) + TilePictureFile(type);
}

}  // namespace vtr
