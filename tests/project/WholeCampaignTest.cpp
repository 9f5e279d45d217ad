#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "RailwayFile.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SaveFiles.h"
#include "SilentWindow.h"
#include "TargetFile.h"
#include "TargetNameFile.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

TEST(WholeCampaign, LoadingAndSavingTheSampleLeavesEveryByteOfItsFolder) {
    const TemporaryFolder folder;
    const TemporaryFolder program;
    WriteSampleCampaign(folder.Path(), false);
    std::map<std::string, std::string> before;
    for (const std::string &name : folder.Names())
        before[name] = folder.Content(name);

    const auto campaign = std::make_unique<Campaign>();
    SilentWindow window;
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    // A file that is not written would pass for one that is written the same.
    const std::array<const char *, 6> files{"TARGET.DAT",   "TARNAMES.STR", "GRIDDATA.DAT",
                                            "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"};
    for (const char *name : files)
        if (std::string_view(name) != "TARGET.DAT")  // keeps what it does not know of the one before
            std::filesystem::remove(folder.Path() + name);
    const auto oldTargets =
        std::filesystem::last_write_time(folder.Path() + "TARGET.DAT") - std::chrono::hours(1);
    std::filesystem::last_write_time(folder.Path() + "TARGET.DAT", oldTargets);

    EXPECT_TRUE(
        SaveFiles(*campaign, {true, true, true, false, true, true, true}, program.Path()).Succeeded());
    EXPECT_GT(std::filesystem::last_write_time(folder.Path() + "TARGET.DAT"), oldTargets);
    ASSERT_EQ(folder.Names().size(), before.size());
    for (const auto &[name, content] : before)
        EXPECT_TRUE(folder.Content(name) == content) << name;
}

struct CampaignFiles {
    Bytes names;
    Bytes targets;
    Bytes railway;
    Bytes frontlines;
    Bytes airfields;

    bool operator==(const CampaignFiles &) const = default;
};

CampaignFiles Encode(const Campaign &campaign) {
    return {EncodeTargetNames(campaign), EncodeTargets(campaign, {}, {}), EncodeRailway(campaign),
            EncodeFrontlines(campaign), EncodeAirfields(campaign)};
}

void Decode(const CampaignFiles &files, Campaign &campaign) {
    RecordingListener listener;
    DecodeTargetNames(files.names, "names", campaign, listener);
    DecodeTargets(files.targets, "targets", campaign, listener);
    DecodeRailway(files.railway, "railway", campaign, listener);
    DecodeFrontlines(files.frontlines, "frontlines", campaign, listener);
    DecodeAirfields(files.airfields, "airfields", campaign, listener);
    EXPECT_TRUE(std::ranges::all_of(listener.shortFiles, [](const ShortFile &file) {
        ADD_FAILURE() << file.path << " is short";
        return false;
    }));
}

TEST(WholeCampaign, AThousandRandomOnesComeBackWholeAndAreWrittenAgainAsTheSameBytes) {
    std::mt19937 random(1944);
    const auto made = std::make_unique<Campaign>();
    CampaignFiles last;
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomTables(*made, random);
        FillWithRandomLines(*made, random);
        EndLinesAtRandom(*made, random);
        const CampaignFiles files = Encode(*made);
        ASSERT_FALSE(files == last) << "no two are alike";

        const auto read = std::make_unique<Campaign>();
        Decode(files, *read);
        ASSERT_TRUE(read->TargetNameTable == made->TargetNameTable) << run;
        ASSERT_TRUE(read->TargetTable == made->TargetTable) << run;
        ASSERT_TRUE(read->RailwayTable == made->RailwayTable) << run;
        ASSERT_TRUE(read->FrontlineTable == made->FrontlineTable) << run;
        ASSERT_TRUE(read->AirfieldTable == made->AirfieldTable) << run;
        const CampaignFiles again = Encode(*read);
        ASSERT_TRUE(again == files) << run;
        last = files;
    }
}

}  // namespace
}  // namespace vtr
