#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include "AirfieldFile.h"
#include "FrontlineFile.h"
#include "LoadProject.h"
#include "RailwayFile.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SilentWindow.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"
#include "WholeFile.h"

namespace vtr {
namespace {

/// Writes down what the loader asks for, in the order in which it asks.
class RecordingWindow : public LoadProjectWindow {
  public:
    std::vector<std::string> calls;
    std::vector<double> progress;
    LoadReport report;

    void ShowProgress() override { calls.emplace_back("ShowProgress"); }
    void SetProgress(double value) override { progress.push_back(value); }
    void ShowProjectName(const std::string &name) override { calls.push_back("ShowProjectName " + name); }
    void TellNoMap() override { calls.emplace_back("TellNoMap"); }
    void CloseProgress() override { calls.emplace_back("CloseProgress"); }
    void LoadMapPicture(const std::string &path, LoadListener &) override {
        calls.push_back("LoadMapPicture " + path);
    }
    void ShowCampaign() override { calls.emplace_back("ShowCampaign"); }
    void Tell(const LoadReport &told) override {
        calls.emplace_back("Tell");
        report = told;
    }
};

class LoadProjectTest : public ::testing::Test {
  protected:
    TemporaryFolder folder;
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    RecordingWindow window;

    void Load(const std::string &text) { LoadProject(folder.Make("p.prj", text), *campaign, window); }
    ErrorKind KindOfFailedLoad(const std::string &path) {
        try {
            LoadProject(path, *campaign, window);
        } catch (const Error &error) {
            message = error.what();
            return error.Kind();
        }
        ADD_FAILURE() << "the load went through";
        return ErrorKind::Overflow;
    }
    std::string message;
};

TEST_F(LoadProjectTest, AsksTheWindowInTheFixedOrder) {
    Load("Name=North front\r\nMap=m.bmp\r\n");
    EXPECT_EQ(window.calls, (std::vector<std::string>{"ShowProgress", "ShowProjectName North front",
                                                      "LoadMapPicture " + folder.Path() + "m.bmp",
                                                      "ShowCampaign", "CloseProgress", "Tell"}));
    EXPECT_TRUE(campaign->ProjectLoaded);
}

TEST_F(LoadProjectTest, AProjectOfThirteenLinesLeavesTheBarAt13Then15Then20BeforeTheReadersStart) {
    Load(
        "Name=a\r\nMap=m.bmp\r\nMapTM=\r\nTARGETS=\r\nTARNAMES=\r\nGridData=\r\nFrontline=\r\nAirfield=\r\n"
        "Railway=\r\nROADWPT=\r\nRoadList=\r\nRAILWPT=\r\nRailList=\r\n");
    EXPECT_EQ(window.progress, (std::vector<double>{0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                                    13, 15, 20, 50, 60, 68, 28, 36, 44, 52, 76, 100}));
}

TEST_F(LoadProjectTest, TheReadersMoveTheBarByTheirStepAfterEveryRecord) {
    WriteSampleCampaign(folder.Path(), false);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);

    std::vector<double> expected{0};
    const auto run = [&expected](double from, int records, double step) {
        double value = from;
        for (int i = 0; i < records; ++i)
            expected.push_back(value += step);
    };
    run(0, 14, 1);
    expected.insert(expected.end(), {15, 20, 50});
    run(50, 308, 8.0 / 308);
    expected.push_back(60);
    run(60, 302, 1.0 / 302);
    expected.push_back(68);
    run(68, 894, 8.0 / 894);
    expected.push_back(28);
    run(28, 600, 1.0 / 75);
    expected.push_back(36);
    run(36, 297, 8.0 / 297);
    expected.push_back(44);
    run(44, 99, 8.0 / 99);
    expected.push_back(52);
    run(52, 162, 8.0 / 162);
    expected.insert(expected.end(), {76, 100});
    ASSERT_EQ(window.progress.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        ASSERT_DOUBLE_EQ(window.progress[i], expected[i]) << "value " << i;
    EXPECT_TRUE(window.report.shortFiles.empty());
}

/// Notes beside each call the bar's last value before it (-1: none yet).
class WindowWithTheBarBeforeEachCall : public RecordingWindow {
  public:
    std::vector<std::pair<std::string, double>> BarBeforeCalls() const {
        std::vector<std::pair<std::string, double>> pairs;
        for (std::size_t i = 0; i < calls.size(); ++i)
            pairs.emplace_back(calls[i].substr(0, calls[i].find(' ')), barBefore_.at(i));
        return pairs;
    }

    void SetProgress(double value) override {
        NoteNewCalls();
        RecordingWindow::SetProgress(value);
    }
    /// To be called when the load is over.
    void NoteNewCalls() {
        while (barBefore_.size() < calls.size())
            barBefore_.push_back(progress.empty() ? -1 : progress.back());
    }

  private:
    std::vector<double> barBefore_;
};

TEST_F(LoadProjectTest, TheCallsStandBetweenTheBarsValuesWhereTheyBelong) {
    WriteSampleCampaign(folder.Path(), false);
    WindowWithTheBarBeforeEachCall bar;
    LoadProject(folder.Path() + "sample.prj", *campaign, bar);
    bar.NoteNewCalls();
    EXPECT_THAT(bar.BarBeforeCalls(), ::testing::ElementsAreArray(
                                          std::vector<std::pair<std::string, double>>{{"ShowProgress", -1},
                                                                                      {"ShowProjectName", 15},
                                                                                      {"LoadMapPicture", 15},
                                                                                      {"ShowCampaign", 76},
                                                                                      {"CloseProgress", 100},
                                                                                      {"Tell", 100}}));
    EXPECT_EQ(std::count(bar.progress.begin(), bar.progress.end(), 20.0), 1) << "before the first reader";
}

TEST_F(LoadProjectTest, TheFilesAreReadOneAfterTheOtherNamesBeforeTargetsAndAirfieldsLast) {
    WriteSampleCampaign(folder.Path(), false);
    std::vector<std::string> missed;
    const std::vector<std::string> inOrder{"VTR.TM",       "TARNAMES.STR", "TARGET.DAT",  "VTR_RRD.DAT",
                                           "FRNTLINE.DAT", "ROADWPT.DAT",  "RAILWPT.DAT", "AIRFIELD.DAT"};
    for (const std::string &name : inOrder)
        std::filesystem::rename(folder.Path() + name, folder.Path() + name + ".away");
    // The first that is missing stops the load.
    for (const std::string &name : inOrder) {
        missed.push_back(
            ErrorThrownBy([this] { LoadProject(folder.Path() + "sample.prj", *campaign, window); }).File());
        std::filesystem::rename(folder.Path() + name + ".away", folder.Path() + name);
    }
    for (std::size_t i = 0; i < inOrder.size(); ++i)
        EXPECT_EQ(missed[i], folder.Path() + inOrder[i]);
}

TEST_F(LoadProjectTest, TheOpenCampaignIsReplacedWhenAllIsRead) {
    struct Watcher : SilentWindow {
        explicit Watcher(const Campaign &watched) : campaign(watched) {}
        void SetProgress(double value) override {
            loadedBefore100 = loadedBefore100 || (value < 76 && campaign.ProjectLoaded);
        }
        void ShowCampaign() override { loadedWhenShown = campaign.ProjectLoaded; }
        const Campaign &campaign;
        bool loadedBefore100 = false;
        bool loadedWhenShown = false;
    };
    Watcher watcher(*campaign);
    WriteSampleCampaign(folder.Path(), false);
    LoadProject(folder.Path() + "sample.prj", *campaign, watcher);
    EXPECT_FALSE(watcher.loadedBefore100);
    EXPECT_TRUE(watcher.loadedWhenShown);
}

TEST_F(LoadProjectTest, AFailedLoadLeavesTheOpenCampaignAsItWas) {
    WriteSampleCampaign(folder.Path(), false);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    campaign->TargetTable[100].x = 7;
    const auto before = std::make_unique<Campaign>(*campaign);
    for (const char *missing : {"VTR.TM", "TARNAMES.STR", "TARGET.DAT", "VTR_RRD.DAT", "FRNTLINE.DAT",
                                "ROADWPT.DAT", "RAILWPT.DAT", "AIRFIELD.DAT"}) {
        TemporaryFolder other;
        WriteSampleCampaign(other.Path(), false);
        std::filesystem::remove(other.Path() + missing);
        ErrorThrownBy([&] { LoadProject(other.Path() + "sample.prj", *campaign, window); });
        EXPECT_TRUE(*campaign == *before) << missing;
    }
}

TEST_F(LoadProjectTest, AMapOfNoneStopsWithAMessageAndKeepsWhatWasLoadedButThePathsAndTheName) {
    campaign->TargetTable[0].x = 77;
    Load("Name=Second\r\nMap=NONE\r\nMapTM=VTR.TM\r\n");
    EXPECT_EQ(window.calls, (std::vector<std::string>{"ShowProgress", "ShowProjectName Second", "TellNoMap",
                                                      "CloseProgress", "Tell"}));
    EXPECT_FALSE(campaign->ProjectLoaded);
    EXPECT_EQ(campaign->TargetTable[0].x, 77);
    EXPECT_EQ(campaign->paths.Name, "Second");
}

TEST_F(LoadProjectTest, TheMapsNameMayBeWrittenInTheGamesLetters) {
    Load("Name=x\r\nMap=K\xF6ln.bmp\r\n");
    EXPECT_THAT(window.calls, ::testing::Contains("LoadMapPicture " + folder.Path() + "K\u00F6ln.bmp"));
}

TEST_F(LoadProjectTest, TellsWhichKeysHaveNoFile) {
    Load("Name=x\r\nMap=m.bmp\r\nRoadList=ROADLIST.DAT\r\nGridData=GRIDDATA.DAT\r\n");
    EXPECT_THAT(window.report.keysWithoutFile,
                ::testing::ElementsAre("MAPTM", "TARGETS", "TARNAMES", "FRONTLINE", "AIRFIELD", "RAILWAY",
                                       "ROADWPT", "RAILWPT", "RAILLIST"));
}

TEST_F(LoadProjectTest, AUtf8MarkStaysPartOfTheFirstKeyAndIsTold) {
    Load("\xEF\xBB\xBFName=x\r\nMap=m.bmp\r\n");
    EXPECT_EQ(campaign->paths.Name, "");
    EXPECT_TRUE(window.report.projectFile.hasUtf8Mark);
    Load("Name=x\r\nMap=m.bmp\r\n");
    EXPECT_FALSE(window.report.projectFile.hasUtf8Mark);
}

TEST_F(LoadProjectTest, AProjectThatNamesNoMapPictureIsAnErrorThatSaysSo) {
    const std::string path = folder.Make("p.prj", "Name=x\r\n");
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, window); });
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Expected(), "a line \"Map=\" with the name of the map picture");
    EXPECT_EQ(error.Found(), "none");
}

TEST_F(LoadProjectTest, OnlyNoneInCapitalsMeansNoMap) {
    Load("Map=None\r\n");
    EXPECT_EQ(window.calls[2], "LoadMapPicture " + folder.Path() + "None");
}

TEST_F(LoadProjectTest, AFileThatTheNewProjectDoesNotNameIsTheOneOfTheProjectBefore) {
    WriteSampleCampaign(folder.Path(), false);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    const std::string firstName = campaign->TargetNameTable[0];
    campaign->TargetNameTable[0] = "changed";
    Load("Name=next\r\n");
    EXPECT_EQ(campaign->TargetNameTable[0], firstName);
    EXPECT_EQ(campaign->paths.Name, "next");
}

TEST_F(LoadProjectTest, ShortFilesAreListedOnceAfterTheLoadWithTheirSizes) {
    WriteSampleCampaign(folder.Path(), false);
    std::filesystem::resize_file(folder.Path() + "TARGET.DAT", 4 + 32 * 100 + 7);
    std::filesystem::resize_file(folder.Path() + "VTR.TM", 1000);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    ASSERT_EQ(window.report.shortFiles.size(), 2U);
    EXPECT_EQ(window.calls.back(), "Tell");
    EXPECT_EQ(window.report.shortFiles[0].path, folder.Path() + "VTR.TM");
    EXPECT_EQ(window.report.shortFiles[0].found, 1000U);
    EXPECT_EQ(window.report.shortFiles[0].expected, 204800U);
    EXPECT_EQ(window.report.shortFiles[1].path, folder.Path() + "TARGET.DAT");
    EXPECT_EQ(window.report.shortFiles[1].found, 3211U);
    EXPECT_EQ(window.report.shortFiles[1].expected, 9668U);
    EXPECT_EQ(campaign->TargetTable[200].code, 0);
    EXPECT_EQ(campaign->terrain[2000], 0);
}

TEST_F(LoadProjectTest, FilesOfTheGameAreReadOnlyAsFarAsTheirFormatGoes) {
    WriteSampleCampaign(folder.Path(), false);
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    const auto before = std::make_unique<Campaign>(*campaign);
    for (const char *name : {"VTR.TM", "TARGET.DAT", "VTR_RRD.DAT", "FRNTLINE.DAT", "ROADWPT.DAT",
                             "RAILWPT.DAT", "AIRFIELD.DAT"})
        std::filesystem::resize_file(folder.Path() + name, std::uintmax_t{4} << 30);
    {
        const SystemCalls calls;
        LoadProject(folder.Path() + "sample.prj", *campaign, window);
        EXPECT_LT(calls.BytesRead(), 400000U);
    }
    EXPECT_EQ(campaign->terrain, before->terrain);
    EXPECT_EQ(campaign->TargetTable, before->TargetTable);
    EXPECT_EQ(EncodeRailway(*campaign), EncodeRailway(*before));
    EXPECT_EQ(EncodeFrontlines(*campaign), EncodeFrontlines(*before));
    EXPECT_EQ(EncodeAirfields(*campaign), EncodeAirfields(*before));
    EXPECT_EQ(campaign->RoadWaypointTable, before->RoadWaypointTable);
    EXPECT_EQ(campaign->RailWaypointTable, before->RailWaypointTable);
    EXPECT_TRUE(window.report.shortFiles.empty());
}

TEST_F(LoadProjectTest, AProjectFileAndATargetNamesFileAboveOneMiBAreErrorsOfThatFile) {
    WriteSampleCampaign(folder.Path(), false);
    std::filesystem::resize_file(folder.Path() + "TARNAMES.STR", (1 << 20) + 1);
    EXPECT_EQ(KindOfFailedLoad(folder.Path() + "sample.prj"), ErrorKind::FileTooLarge);
    EXPECT_THAT(message, ::testing::HasSubstr("TARNAMES.STR"));
    std::filesystem::resize_file(folder.Path() + "sample.prj", (1 << 20) + 1);
    EXPECT_EQ(KindOfFailedLoad(folder.Path() + "sample.prj"), ErrorKind::FileTooLarge);
    EXPECT_THAT(message, ::testing::HasSubstr("sample.prj"));
}

TEST_F(LoadProjectTest, RemovesWhatAKilledSaveLeftInTheProjectsFolder) {
    MakeAbandonedTemporary(folder);
    Load("Name=a\r\nMap=NONE\r\n");
    EXPECT_THAT(folder.Names(), ::testing::ElementsAre("p.prj"));
}

TEST_F(LoadProjectTest, TheRailwayLineCountOfTheProjectBeforeIsForgotten) {
    WriteSampleCampaign(folder.Path(), false);
    campaign->RailwayLineCount = 5;
    LoadProject(folder.Path() + "sample.prj", *campaign, window);
    EXPECT_GT(campaign->RailwayLineCount, 700);
}

TEST_F(LoadProjectTest, AFailureInAReaderEndsTheLoadWithTheProgressWindowOpen) {
    WriteSampleCampaign(folder.Path(), false);
    std::filesystem::remove(folder.Path() + "AIRFIELD.DAT");
    EXPECT_EQ(KindOfFailedLoad(folder.Path() + "sample.prj"), ErrorKind::FileMissing);
    EXPECT_THAT(message, ::testing::HasSubstr("AIRFIELD.DAT"));
    EXPECT_NE(window.calls.back(), "CloseProgress");
}

TEST_F(LoadProjectTest, AProjectThatDoesNotExistIsCreatedEmptyAndLoadsWithTheValuesOfTheOneBefore) {
    campaign->paths.Map = "old.bmp";
    LoadProject(folder.Path() + "new.prj", *campaign, window);
    EXPECT_EQ(std::filesystem::file_size(folder.Path() + "new.prj"), 0U);
    EXPECT_EQ(window.calls[2], "LoadMapPicture " + folder.Path() + "old.bmp");
}

TEST_F(LoadProjectTest, OnAFirstLoadAProjectThatDoesNotExistIsCreatedEmptyAndStopsAtTheMap) {
    RecordingWindow first;
    const std::string path = folder.Path() + "new.prj";
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, first); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Found(), "no such file, so that an empty one was made");
    EXPECT_EQ(std::filesystem::file_size(path), 0U);
    EXPECT_EQ(first.calls, (std::vector<std::string>{"ShowProgress", "ShowProjectName "}));
    EXPECT_EQ(first.progress, (std::vector<double>{0, 15}));
    EXPECT_FALSE(campaign->ProjectLoaded);
}

TEST_F(LoadProjectTest, AProjectThatDoesNotExistIsNamedWhenTheMapOfTheOneBeforeIsNotBesideIt) {
    struct ReadsTheMap : RecordingWindow {
        void LoadMapPicture(const std::string &path, LoadListener &) override { ReadWholeFile(path); }
    };
    ReadsTheMap second;
    campaign->paths.Map = "old.bmp";
    const std::string path = folder.Path() + "new.prj";
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, second); });
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Found(),
              "no such file, so that an empty one was made; the map picture of the project before "
              "(\"old.bmp\") is not there");
    folder.Make("named.prj", "Name=x\r\n");
    EXPECT_EQ(ErrorThrownBy([&] { LoadProject(folder.Path() + "named.prj", *campaign, second); }).File(),
              folder.Path() + "old.bmp");
}

TEST_F(LoadProjectTest, AProjectThatDoesNotExistIsNamedWhenAnotherFileOfTheOneBeforeIsNotBesideIt) {
    campaign->paths.Map = "old.bmp";
    campaign->paths.Targets = "TARGET.DAT";
    const std::string path = folder.Path() + "new.prj";
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, window); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Expected(), "a project file");
    EXPECT_EQ(error.Found(),
              "no such file, so that an empty one was made; a file of the project before "
              "(\"TARGET.DAT\") is not there");
}

TEST_F(LoadProjectTest, AnUnreadableFileBesideAProjectThatDoesNotExistIsNamedAsSuch) {
    campaign->paths.Map = "old.bmp";
    campaign->paths.TarNames = "TARNAMES.STR";
    std::filesystem::create_directory(folder.Path() + "TARNAMES.STR");
    const Error error = ErrorThrownBy([&] { LoadProject(folder.Path() + "new.prj", *campaign, window); });
    EXPECT_EQ(error.File(), folder.Path() + "new.prj");
    EXPECT_EQ(error.Found(),
              "no such file, so that an empty one was made; a file of the project before "
              "(\"TARNAMES.STR\") cannot be read");
}

TEST_F(LoadProjectTest, AProjectFileThatWasMadeIsTold) {
    campaign->paths.Map = "old.bmp";
    LoadProject(folder.Path() + "new.prj", *campaign, window);
    EXPECT_TRUE(window.report.projectFile.wasMade);
    LoadProject(folder.Path() + "new.prj", *campaign, window);
    EXPECT_FALSE(window.report.projectFile.wasMade);
}

TEST_F(LoadProjectTest, AUtf8MarkBeforeTheMapIsToldWhenThereIsNoMap) {
    const std::string path = folder.Make("p.prj", "\xEF\xBB\xBFMap=m.bmp\r\n");
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, window); });
    EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Found(), "none; a UTF-8 mark makes the first line count for nothing");
}

TEST_F(LoadProjectTest, AProjectNamedInMoreCharactersThanTheSystemAllowsIsAnErrorThatNamesIt) {
    const std::string path = folder.Path() + std::string(300, 'n') + ".prj";
    EXPECT_FALSE(RefusalOfProjectPath(path));
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, window); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(error.File(), path);
    EXPECT_FALSE(campaign->ProjectLoaded);
}

TEST_F(LoadProjectTest, AnEmptyPathAndAFolderAreRefusedInWordsBeforeAnythingIsTouched) {
    const auto empty = RefusalOfProjectPath("");
    ASSERT_TRUE(empty);
    EXPECT_STREQ(empty->what(),
                 "file access failed: expected the path of a project file (*.prj), found no path at all");
    const auto isFolder = RefusalOfProjectPath(folder.Path());
    ASSERT_TRUE(isFolder);
    EXPECT_EQ(isFolder->File(), folder.Path());
    EXPECT_EQ(isFolder->Found(), "a folder");
    std::filesystem::create_directory(folder.Path() + "north");
    EXPECT_TRUE(RefusalOfProjectPath(folder.Path() + "NORTH")) << "it would be found in another letter case";
    EXPECT_FALSE(RefusalOfProjectPath(folder.Path() + "not-there-yet.prj"));
}

}  // namespace
}  // namespace vtr
