#pragma once

#include <string>

#include "ProjectPaths.h"

namespace vtr {

// A tiles folder is UTF-8 and does not end in a separator.

/// The value of TILESDIR for folder. It is relative when folder is the project's own or lies below it, so
/// that both can be moved together.
std::string TilesDirValue(const std::string &folder, const std::string &projectDir);

/// Makes folder the tiles folder of the open project and writes it into the project file, where nothing else
/// changes. Throws an Error when the file cannot be written or cannot name the folder. Then the folder counts
/// until the next load.
void SetTilesFolder(ProjectPaths &paths, const std::string &folder);

}  // namespace vtr
