#pragma once

#include <functional>
#include <string>

#include "Bytes.h"
#include "ProjectPaths.h"

namespace vtr {

/// What a project file was like, beside its values.
struct ProjectFileFacts {
    bool wasMade = false;      ///< there was none: it has been made empty
    bool hasUtf8Mark = false;  ///< its first line begins with one, which is part of that line's key
};

/// Reads the lines of the project file at path into paths, calling lineRead after each. A file that is
/// missing is made empty. Throws a type-mismatch Error for a line without "=" and for text of 16 bits, and
/// the errors of file access.
ProjectFileFacts ReadProjectFile(const std::string &path, ProjectPaths &paths,
                                 const std::function<void()> &lineRead);

/// The same for the bytes of the file at path.
ProjectFileFacts DecodeProjectFile(ConstByteSpan bytes, const std::string &path, ProjectPaths &paths,
                                   const std::function<void()> &lineRead);

/// The thirteen lines of a new project file, from texts in UTF-8: in single-byte characters, or all of it in
/// UTF-8 when some text has none.
Bytes EncodeProjectFile(const ProjectPaths &paths);

/// Sets ProjectDir, ProjectFile and TilesDir from the path of the project file: TilesDir is put behind
/// ProjectDir unless it is absolute ("C:\..." everywhere, "/..." on systems without drive letters) and loses
/// one separator at its end.
void DeriveFolders(const std::string &path, ProjectPaths &paths);

}  // namespace vtr
