#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "RailwayFile.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SharedSample.h"
#include "TargetFile.h"
#include "TargetNameFile.h"
#include "WaypointFile.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;

class SampleFolder : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() / (std::string("vtr_sample_") +
                                               testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string PathOf(const std::string &name) const { return (folder_ / name).string(); }

    Bytes Written(const std::string &name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    fs::path folder_;
};

TEST(SampleCampaign, FilesAreAsLongAsTheGameExpects) {
    EXPECT_EQ(SampleBytes("VTR.TM").size(), 204800U);
    EXPECT_EQ(SampleBytes("TARGET.DAT").size(), 4U + 32 * 302);
    EXPECT_EQ(SampleBytes("AIRFIELD.DAT").size(), 4U + 44 * 162);
    EXPECT_EQ(SampleBytes("VTR_RRD.DAT").size(), 4U + 24 * 894);
    EXPECT_EQ(SampleBytes("FRNTLINE.DAT").size(), 20U * 600);
    EXPECT_EQ(SampleBytes("GRIDDATA.DAT").size(), 6400U);
    std::size_t names = 1548;
    for (const std::string &name : Sample().TargetNameTable)
        names += name.size();
    EXPECT_EQ(SampleBytes("TARNAMES.STR").size(), names);
}

TEST(SampleCampaign, ProjectFileNamesEveryFileInCrLfLines) {
    const Bytes &bytes = SampleBytes("sample.prj");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
              "Name=Yaxel Sound\r\nMap=map.bmp\r\nMapTM=VTR.TM\r\nTARGETS=TARGET.DAT\r\n"
              "TARNAMES=TARNAMES.STR\r\nGridData=GRIDDATA.DAT\r\nFrontline=FRNTLINE.DAT\r\n"
              "Airfield=AIRFIELD.DAT\r\nRailway=VTR_RRD.DAT\r\nROADWPT=ROADWPT.DAT\r\n"
              "RoadList=ROADLIST.DAT\r\nRAILWPT=RAILWPT.DAT\r\nRailList=RAILLIST.DAT\r\nTILESDIR=tiles\r\n");
}

TEST(SampleCampaign, LeavesOutFilesThatAVariationDoesNotName) {
    const auto variation = std::make_unique<Campaign>(Sample());
    variation->paths.Railway.clear();
    for (const SampleFile &file : EncodeCampaignFiles(*variation))
        EXPECT_FALSE(file.name.empty() || file.name == "VTR_RRD.DAT");
}

TEST(SampleCampaign, RefusesAVariationWhoseGridDoesNotBuild) {
    const auto variation = std::make_unique<Campaign>(Sample());
    variation->TargetTable[5].y = 1759;
    try {
        EncodeCampaignFiles(*variation);
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.Item(), "target 5");
    }
}

TEST_F(SampleFolder, HoldsWhatTheProjectNamesAndTheTilePicturesOnlyIfAskedFor) {
    WriteSampleCampaign(folder_.string(), false);
    for (const SampleFile &file : SampleFiles())
        EXPECT_TRUE(Written(file.name) == file.bytes) << file.name;
    EXPECT_TRUE(Written("map.bmp") == SampleMapPicture().bytes);
    EXPECT_FALSE(fs::exists(folder_ / "tiles"));

    WriteSampleCampaign(folder_.string());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "tiles"), fs::directory_iterator()), 59);
}

TEST_F(SampleFolder, LoadsAsTheCampaignThatWasMade) {
    WriteSampleFiles(folder_.string(), SampleFiles());
    const auto loaded = std::make_unique<Campaign>();
    RecordingListener listener;
    ReadTargetNames(PathOf("TARNAMES.STR"), *loaded, listener);
    ReadTargets(PathOf("TARGET.DAT"), *loaded, listener);
    ReadRailway(PathOf("VTR_RRD.DAT"), *loaded, listener);
    ReadFrontlines(PathOf("FRNTLINE.DAT"), *loaded, listener);
    ReadRoadWaypoints(PathOf("ROADWPT.DAT"), *loaded, listener);
    ReadRailWaypoints(PathOf("RAILWPT.DAT"), *loaded, listener);
    ReadAirfields(PathOf("AIRFIELD.DAT"), *loaded, listener);
    EXPECT_TRUE(listener.shortFiles.empty());

    EXPECT_TRUE(loaded->TargetNameTable == Sample().TargetNameTable);
    EXPECT_TRUE(loaded->AirfieldTable == Sample().AirfieldTable);
    EXPECT_TRUE(loaded->RailwayTable == Sample().RailwayTable);
    EXPECT_EQ(loaded->RailwayLineCount, Sample().RailwayLineCount);
    EXPECT_TRUE(loaded->FrontlineTable == Sample().FrontlineTable);
    for (std::size_t i = 0; i < targetTotal; ++i) {
        const TargetRecord &read = loaded->TargetTable[i];
        const TargetRecord &made = Sample().TargetTable[i];
        EXPECT_EQ(std::tie(read.x, read.y, read.code, read.name, read.count, read.extra_word),
                  std::tie(made.x, made.y, made.code, made.name, made.count, made.extra_word));
        EXPECT_EQ(std::tie(read.airfield_mark, read.airfield_ref),
                  std::tie(made.airfield_mark, made.airfield_ref))
            << i;
    }
    const auto expectSamePaths = [](const auto &read, const auto &made) {
        for (std::size_t i = 0; i < made.size(); ++i) {
            EXPECT_EQ(read[i].count, made[i].count) << i;
            EXPECT_TRUE(read[i].waypoints == made[i].waypoints) << i;
        }
    };
    expectSamePaths(loaded->RoadWaypointTable, Sample().RoadWaypointTable);
    expectSamePaths(loaded->RailWaypointTable, Sample().RailWaypointTable);
}

}  // namespace
}  // namespace vtr
