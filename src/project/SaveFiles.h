#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Campaign.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "FileStamps.h"

namespace vtr {

/// The files of the save dialog, by the index of their check boxes; there is no box 3, whose caption is
/// empty. Boxes 7 to 10 are shown, but those files are never written.
constexpr std::size_t firstUnwrittenBox = 7;

using SaveBoxes = std::array<bool, saveBoxTotal>;

/// The caption of a box, which is the usual name of its file.
std::string_view SaveBoxCaption(std::size_t box);

/// What the project has for a box.
struct SaveBoxFile {
    std::string name;       ///< of the file in the project's folder (UTF-8); empty: not part of the project
    std::string objection;  ///< why a save never writes it, in words; empty: it does
    std::string linkedTo;   ///< the file outside the project's folder that a link there leads to; empty: none
};
SaveBoxFile FileOfSaveBox(const ProjectPaths &paths, std::size_t box);

/// The ticked files that a save replaces or makes, in its order.
std::vector<const CampaignFile *> FilesToSave(const ProjectPaths &paths, const SaveBoxes &ticked);

/// How a save ended. A file that the project does not name, or that may be damaged now (failure tells), is
/// neither written nor not written.
struct SaveOutcome {
    std::vector<std::string_view> written;     ///< captions of the ticked files
    std::vector<std::string_view> notWritten;  ///< those that still stand as they were
    std::optional<int> misfit;                 ///< the target that the grid data has no cell for
    std::optional<Error> failure;              ///< what stopped the save
    FileStamps stamps;                         ///< of the files that are no longer as they were before it

    bool Succeeded() const { return !misfit && !failure; }
    /// True when some files are new and others old, or damaged: they do not belong together.
    bool LeavesMixture() const;
};

/// Writes the ticked files in place, in the order targets, target names, grid data, frontlines, airfields,
/// railway. The first file that fails stops the save; a target without a cell does not. A file that is no
/// longer as expected (which may be null) says fails.
SaveOutcome SaveFiles(const Campaign &campaign, const SaveBoxes &ticked, const std::string &programFolder,
                      const FileStamps *expected = nullptr);

}  // namespace vtr
