#pragma once

#include <gtest/gtest.h>

#include "SampleCampaign.h"

namespace vtr {

/// The sample campaign, made once a test program.
inline const Campaign &Sample() {
    static const std::unique_ptr<Campaign> campaign = MakeSampleCampaign();
    return *campaign;
}

inline const std::vector<SampleFile> &SampleFiles() {
    static const std::vector<SampleFile> files = EncodeCampaignFiles(Sample());
    return files;
}

inline const Bytes &SampleBytes(std::string_view name) {
    static const Bytes none;
    for (const SampleFile &file : SampleFiles())
        if (file.name == name)
            return file.bytes;
    ADD_FAILURE() << "the sample has no file " << name;
    return none;
}

constexpr int waterType = 2;

inline int TileTypeAt(int x, int y) {
    return Sample().terrain.at(static_cast<std::size_t>(y * 640 + x)) & 63;
}

inline bool IsLandTile(int x, int y) {
    return x >= 0 && x < 640 && y >= 0 && y < 320 && TileTypeAt(x, y) != waterType;
}

}  // namespace vtr
