#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Campaign.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "LoadListener.h"
#include "SaveFiles.h"

namespace vtr {

/// So many sets of a project are kept.
constexpr std::size_t versionSetTotal = 20;

/// The folder of what is kept for a project in the user's data folder, ending in a separator; it need not
/// exist. Empty when dataFolder is.
std::string VersionsFolderOf(const std::string &dataFolder, const ProjectPaths &paths);
/// Makes that folder for the project. Throws an Error when that fails.
void MakeVersionsFolder(const std::string &dataFolder, const ProjectPaths &paths);

/// Files of the campaign as they were before one session overwrote them.
struct VersionSet {
    std::string folder;                       ///< ends in a separator
    std::int64_t time;                        ///< when the first of them was kept, in seconds since 1970
    std::vector<const CampaignFile *> files;  ///< in the order of saving, each under its usual name
};

/// The sets in a project's versions folder, newest first.
std::vector<VersionSet> VersionSetsIn(const std::string &versionsFolder);

/// What a session, from one load to the next, has kept.
struct KeptVersions {
    std::string set;         ///< the folder of its set; empty: it has none yet
    SaveBoxes files{};       ///< those of which it has kept what was there before
    bool mayBeLost = false;  ///< the user has let a save go on that could keep nothing
};

/// Copies these files of the project, those that exist, into the session's set in the versions folder, which
/// exists, and flushes the copies to the disk. A file that the set has already begins a new set. Throws an
/// Error for the file that cannot be read or written.
void KeepVersions(const std::string &versionsFolder, const ProjectPaths &paths,
                  const std::vector<const CampaignFile *> &files, KeptVersions &kept);
/// Removes a set, as far as it holds files of ours.
void RemoveSet(const std::string &set);
/// Removes all but the newest sets and the current one.
void RemoveOldSets(const std::string &versionsFolder, const std::string &current);

/// The campaign with some files of a set read into it.
struct TakenBack {
    std::unique_ptr<Campaign> campaign;
    std::vector<Error> damaged;  ///< of files that cannot be read; their tables are as they were
    std::vector<ShortFile> shortFiles;
};
/// Reads files of set, which it has, into a copy of campaign.
TakenBack ReadVersions(const VersionSet &set, const std::vector<const CampaignFile *> &files,
                       const Campaign &campaign);

}  // namespace vtr
