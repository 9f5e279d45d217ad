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

/// The invented campaign as loaded from its files, but without a folder. Always the same one.
std::unique_ptr<Campaign> MakeSampleCampaign();

/// The project file and game files of the sample campaign or a variation of it, without the map picture.
/// Leaves out files whose name in campaign.paths is empty. The grid must build.
std::vector<SampleFile> EncodeCampaignFiles(const Campaign &campaign);

/// The map picture of the sample campaign.
SampleFile SampleMapPicture();
/// The pictures of the 59 tile types.
std::vector<SampleFile> SampleTilePictures();

/// Writes files below folder and makes the folder when it is missing.
void WriteSampleFiles(const std::string &folder, const std::vector<SampleFile> &files);

/// Writes the sample campaign and its map picture into folder, and the tile pictures if wanted.
void WriteSampleCampaign(const std::string &folder, bool withTilePictures = true);

}  // namespace vtr
