#include "TilesFolder.h"

#include "AtomicWrite.h"
#include "Errors.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "SetProjectKey.h"
#include "WholeFile.h"

namespace vtr {

std::string TilesDirValue(const std::string &folder, const std::string &projectDir) {
    if (folder + SeparatorOf(projectDir) == projectDir)
        return {};
    return !projectDir.empty() && folder.starts_with(projectDir) ? folder.substr(projectDir.size()) : folder;
}

void SetTilesFolder(ProjectPaths &paths, const std::string &folder) {
    paths.TilesDir = folder;
    const std::string file = paths.ProjectDir + paths.ProjectFile;
    ProjectPaths readBack;
    readBack.TilesDir = TilesDirValue(folder, paths.ProjectDir);
    const Bytes bytes = WithProjectKey(ReadSmallFile(file), "TILESDIR", readBack.TilesDir);
    DeriveFolders(file, readBack);
    if (readBack.TilesDir != folder)
        throw Error(ErrorKind::FileAccess, {.file = file}, "a folder that a project file can name",
                    "\"" + folder + "\"");
    AtomicWrite(file, bytes);
}

}  // namespace vtr
