#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Campaign.h"

namespace vtr {

/// What a copy of a project lacks.
struct ProjectCopy {
    std::vector<std::string> missing;  ///< names in the project file that no file stands behind
    std::optional<int> misfit;         ///< the target without a cell: the grid data is that of the last save
};

/// Copies the open project with its unsaved edits into folder, which is empty and ends in a separator: the
/// files of its keys, those that the editor writes from the tables, and last the project file, which is
/// changed only where the copy would load otherwise. Throws an Error of a folder that is not empty, of a
/// project file whose names lead out of the folder or to one file twice, and file Errors; folder is then as
/// empty as it was.
ProjectCopy CopyProject(const Campaign &campaign, const std::string &folder,
                        const std::string &programFolder);

}  // namespace vtr
