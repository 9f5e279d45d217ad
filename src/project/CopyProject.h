#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Campaign.h"

namespace vtr {

/// What is missing in a copy of a project.
struct ProjectCopy {
    std::vector<std::string> missing;  ///< names in the project file for which there is no file
    std::optional<int> misfit;  ///< a target without a cell, because of which the grid data is the old one
};

/// Copies the open project with its unsaved edits into folder, which is empty and ends in a separator. Writes
/// the campaign's files from the tables, copies the others that the project file names, and writes the
/// project file last. Changes in the project file only what would make the copy load differently. Throws an
/// Error when folder is not empty or when names in the project file lead out of the folder or twice to the
/// same file, and file Errors. Then folder is empty again.
ProjectCopy CopyProject(const Campaign &campaign, const std::string &folder,
                        const std::string &programFolder);

}  // namespace vtr
