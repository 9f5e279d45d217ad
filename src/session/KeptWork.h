#pragma once

#include <optional>
#include <string>
#include <vector>

#include "FileStamps.h"
#include "OwnerMark.h"
#include "UnsavedWork.h"

namespace vtr {

/// A file of unsaved work that is this process's own as long as this lives.
class KeptWork {
  public:
    /// Chooses a name of its own for the work of the project in dataFolder and marks it; the file is not
    /// made. Throws file-access Errors.
    KeptWork(const std::string &dataFolder, const std::string &project);

    /// Marks it again when its mark, or the whole folder, has been removed meanwhile. Throws file-access
    /// Errors.
    void Mark();

    const std::string &Path() const { return path_; }
    /// The project's RealProjectPath.
    const std::string &Project() const { return project_; }

  private:
    std::string project_;
    std::string path_;
    std::optional<OwnerMark> mark_;
};

/// The path that a project has whichever way leads to its folder. A project file that is a link is a project
/// of its own: the campaign's files lie beside it.
std::string RealProjectPath(const std::string &project);

/// The files of unsaved work of the project that are nobody's own: their processes have ended, or have loaded
/// another project. The newest first. Marks of ended processes are removed.
std::vector<std::string> AbandonedWork(const std::string &dataFolder, const std::string &project);

/// The files of the project that are read at a load, as they are known to the session, by their usual names.
std::vector<StampedFile> StampedFilesOf(const FileStamps &stamps);
/// The usual names of those files that are others now than when the work was kept.
std::vector<std::string> FilesChangedSince(const UnsavedWork &work, const FileStamps &now);

/// Renames a file that cannot be read so that nobody is told of it again; its new path, or path when that
/// fails.
std::string SetAside(const std::string &path);

}  // namespace vtr
