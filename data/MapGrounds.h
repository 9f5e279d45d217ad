#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "MapPicture.h"
#include "Theatre.h"

namespace vtr {

/// What layers are drawn on: colours (red + 256 * green + 65536 * blue) of one kind of map.
struct Ground {
    std::string name;
    std::vector<std::int32_t> colours;
};

constexpr std::int32_t WithRedLowest(std::uint32_t redGreenBlue) {
    return static_cast<std::int32_t>((redGreenBlue >> 16 & 255) | (redGreenBlue & 0xFF00) |
                                     (redGreenBlue & 255) << 16);
}

/// Generated maps (the 59 tile types, turned to the north), then the land and the sea of the sample's map, of
/// which every 23rd pixel is enough.
inline std::vector<Ground> MapGrounds(const std::filesystem::path &terrainColours) {
    Ground generated{"generated map", {}};
    Ground land{"sample's land", {}};
    Ground sea{"sample's sea", {}};
    std::ifstream list(terrainColours);
    for (std::string line; std::getline(list, line) && generated.colours.size() < 59;) {
        std::istringstream words(line);
        std::string type;
        std::string name;
        std::uint32_t north = 0;
        if (line[0] != '#' && words >> type >> name >> std::hex >> north)
            generated.colours.push_back(WithRedLowest(north));
    }
    const Theatre theatre = MakeTheatre();
    const Picture map = PaintMap(theatre);
    for (std::size_t i = 0; i < map.pixels.size(); i += 23)
        (theatre.IsLand(MapGrid<int>::PlaceOf(i)) ? land : sea)
            .colours.push_back(WithRedLowest(map.pixels[i]));
    return {generated, land, sea};
}

}  // namespace vtr
