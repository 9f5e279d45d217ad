#pragma once

#include <string>

#include "ProjectPaths.h"

namespace vtr {

// A tiles folder is UTF-8 and ends in no separator.

/// What the project file's TILESDIR says for folder: relative when folder is the project's own or lies below
/// it, so that both can be moved together.
std::string TilesDirValue(const std::string &folder, const std::string &projectDir);

/// Makes folder the tiles folder of the open project, at once and in its project file, of which nothing else
/// changes. Throws an Error when the file cannot be written or cannot name the folder; the folder
/// then counts until the next load.
void SetTilesFolder(ProjectPaths &paths, const std::string &folder);

}  // namespace vtr
