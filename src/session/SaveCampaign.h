#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "SaveFiles.h"
#include "Session.h"

namespace vtr {

/// What a save asks the user.
class SaveQuestions {
  public:
    virtual ~SaveQuestions() = default;
    /// Whether these files (usual names) may be overwritten, which another program has changed.
    virtual bool MayOverwrite(const std::vector<std::string_view> &changed) = 0;
    /// Whether to save although what the files are now could not be kept.
    virtual bool MaySaveWithoutEarlierVersion(const Error &failure) = 0;
};

/// Saves the ticked files of the session's campaign. What a file was before the session's first save of it,
/// and what another program made of it, is kept among the earlier versions. Nothing when the user did not let
/// it: no file has been written then.
std::optional<SaveOutcome> SaveCampaign(Session &session, const SaveBoxes &ticked, SaveQuestions &questions);

}  // namespace vtr
