#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Campaign.h"

namespace vtr {

/// The files of the save dialog, by the index of their check boxes; there is no box 3, whose caption is
/// empty. Boxes 7 to 10 are shown, but those files are never written.
constexpr std::size_t saveBoxTotal = 11;
constexpr std::size_t firstUnwrittenBox = 7;
extern const std::array<std::string_view, saveBoxTotal> saveBoxCaptions;

using SaveBoxes = std::array<bool, saveBoxTotal>;

/// How far a save came: the captions of the ticked files that it has written, and of those that it has not
/// written yet. A file that the project does not name is in neither.
struct SaveProgress {
    std::vector<std::string_view> written;
    std::vector<std::string_view> notWritten;
};

/// Writes the ticked files in place, in the order targets, target names, grid data, frontlines, airfields,
/// railway. Calls tellMisfit with the target that the grid data has no cell for; the files behind it are
/// still written. The first file that fails stops the save with its Error; progress then tells what was
/// written, that file included when it was replaced before the step that failed.
void SaveFiles(const Campaign &campaign, const SaveBoxes &ticked, const std::string &programFolder,
               SaveProgress &progress, const std::function<void(int target)> &tellMisfit);

}  // namespace vtr
