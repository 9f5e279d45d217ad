#pragma once

#include <string>
#include <string_view>

namespace vtr {

/// The file name of a generated map picture.
constexpr std::string_view generatedMapName = "worldmap.bmp";

/// Writes the map picture of the terrain map in folder into folder, which ends in a separator. Each tile
/// becomes one pixel, in the colour that the template has for the tile's byte. The picture is upside down,
/// because a bitmap stores its bottom row first; the tutorial says so. Before anything can fail, deletes an
/// earlier picture or a symbolic link of its name. Bytes missing from the template's 1,078 and from the
/// terrain map's 204,800 count as zero. Throws file Errors.
void GenerateMap(const std::string &templatePath, const std::string &folder, const std::string &terrainName);

}  // namespace vtr
