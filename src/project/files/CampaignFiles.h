#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "AtomicWrite.h"
#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

/// No file of the game comes near it.
constexpr std::size_t mostGameFileMebibytes = 64;
/// Of the save dialog; there is no box 3.
constexpr std::size_t saveBoxTotal = 11;

/// One of the files that a project names: the map picture and the game's own files.
struct CampaignFile {
    std::string_view key;        ///< as a new project file spells it; letter case does not count
    std::string_view usualName;  ///< in a folder of game files
    std::string ProjectPaths::*name;
    int saveBox = -1;  ///< of the save dialog; -1: it has none

    /// Reads the file at path into the tables; nullptr: a load leaves the file alone.
    void (*read)(const std::string &path, Campaign &campaign, LoadListener &listener) = nullptr;
    double progressAfter = 0;  ///< the value of the load's bar after reading

    /// Writes the tables to path by write. The target that the grid data has no cell for, if there is one;
    /// nothing is written then. nullptr: a save leaves the file alone.
    std::optional<int> (*write)(const std::string &path, const Campaign &campaign,
                                const std::string &programFolder, const FileWrite &write) = nullptr;

    std::size_t SaveBox() const { return static_cast<std::size_t>(saveBox); }
};

/// In the order of a new project file's lines, which is also the order of saving.
extern const std::array<CampaignFile, 12> campaignFiles;
/// The one whose name a project keeps in that member.
const CampaignFile &FileOf(std::string ProjectPaths::*name);
/// Those that a load reads, in its order: target names come before the targets, which copy them.
extern const std::array<const CampaignFile *, 8> filesInReadingOrder;

}  // namespace vtr
