#pragma once

#include <functional>
#include <string>

#include "Bytes.h"
#include "ProjectPaths.h"

namespace vtr {

/// Reads the lines of the project file at path into paths, calling lineRead after each. A file that is
/// missing is created empty. Throws a type-mismatch Error for a line without "=", and the errors of file
/// access.
void ReadProjectFile(const std::string &path, ProjectPaths &paths, const std::function<void()> &lineRead);

/// The same for the bytes of the file at path.
void DecodeProjectFile(ConstByteSpan bytes, const std::string &path, ProjectPaths &paths,
                       const std::function<void()> &lineRead);

/// Sets ProjectDir, ProjectFile and TilesDir from the path of the project file: TilesDir is put behind
/// ProjectDir unless it is absolute ("C:\..." everywhere, "/..." on systems without drive letters) and loses
/// one separator at its end.
void DeriveFolders(const std::string &path, ProjectPaths &paths);

}  // namespace vtr
