#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Campaign.h"

namespace vtr {

struct SampleFile {
    std::string name;  ///< relative to the campaign's folder, with '/'
    Bytes bytes;
};

/// The invented campaign as its files load, but without a folder; always the same one.
std::unique_ptr<Campaign> MakeSampleCampaign();

/// A campaign's project file and the game files it names, all but its map picture: of the sample campaign or
/// of a variation of it. Files whose name campaign.paths leaves empty are left out. The grid must build.
std::vector<SampleFile> EncodeCampaignFiles(const Campaign &campaign);

/// The map picture of the sample campaign.
SampleFile SampleMapPicture();
/// The pictures of the 59 tile types.
std::vector<SampleFile> SampleTilePictures();

/// Writes files below folder, which is made when it is not there.
void WriteSampleFiles(const std::string &folder, const std::vector<SampleFile> &files);

/// Writes the sample campaign to folder with its map picture; the tile pictures only if asked for.
void WriteSampleCampaign(const std::string &folder, bool withTilePictures = true);

}  // namespace vtr
