#include "MirrorMapPicture.h"

#include <algorithm>
#include <filesystem>

#include "AtomicWrite.h"
#include "Errors.h"
#include "MirroredBitmap.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;

/// True when the real file at path, behind all links, lies in the real folder or below it.
bool LiesIn(const std::string &folder, const std::string &path) {
    std::error_code error;
    const fs::path outer = fs::canonical(FilesystemPath(PathOnDisk(folder)), error);
    const fs::path inner = fs::canonical(FilesystemPath(PathOnDisk(path)), error);
    return !error &&
           std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

}  // namespace

std::string MapPicturePath(const ProjectPaths &paths) {
    if (paths.Map.empty() || paths.Map == "NONE")
        throw Error(ErrorKind::FileMissing, {.file = paths.ProjectDir + paths.ProjectFile}, "a map picture",
                    "none named in the project file");
    return paths.PathOf(paths.Map);
}

void MirrorMapPicture(const ProjectPaths &paths) {
    const std::string path = MapPicturePath(paths);
    const Bytes mirrored = MirroredBitmap(ReadFileOfAtMost(mostMapMebibytes, path), path);
    if (!LiesIn(paths.ProjectDir, path))
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file in the project's folder",
                    "one that lies elsewhere");
    AtomicWrite(path, mirrored);
}

}  // namespace vtr
