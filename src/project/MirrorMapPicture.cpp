#include "MirrorMapPicture.h"

#include "AtomicWrite.h"
#include "Errors.h"
#include "MirroredBitmap.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

std::string MapPicturePath(const ProjectPaths &paths) {
    if (paths.Map.empty() || paths.Map == "NONE")
        throw Error(ErrorKind::FileMissing, {.file = paths.ProjectDir + paths.ProjectFile}, "a map picture",
                    "none named in the project file");
    return paths.PathOf(paths.Map);
}

void MirrorMapPicture(const ProjectPaths &paths) {
    const std::string path = MapPicturePath(paths);
    const Bytes mirrored = MirroredBitmap(ReadFileOfAtMost(mostMapMebibytes, path), path);
    if (!RealPathOutside(paths.ProjectDir, path).empty())
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file in the project's folder",
                    "one that lies elsewhere");
    AtomicWrite(path, mirrored);
}

}  // namespace vtr
