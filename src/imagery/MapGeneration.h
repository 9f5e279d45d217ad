#pragma once

#include <string>
#include <string_view>

namespace vtr {

/// The file name of a generated map picture.
constexpr std::string_view generatedMapName = "worldmap.bmp";

/// Writes the map picture of a terrain map: one pixel per tile, its colour the template's for the tile's
/// byte. The terrain's first row is stored first and so shows at the bottom: the picture is upside down, and
/// the tutorial says so. folder ends in a separator and holds the terrain map; the picture is written there.
/// An earlier one, or a symbolic link of its name, is deleted before anything can fail. What the template
/// lacks of its 1,078 bytes and the terrain map of its 204,800 counts as zero. Throws file Errors.
void GenerateMap(const std::string &templatePath, const std::string &folder, const std::string &terrainName);

}  // namespace vtr
