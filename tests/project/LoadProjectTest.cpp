#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include "LoadProject.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SilentWindow.h"
#include "TemporaryFolder.h"
#include "WholeFile.h"

namespace vtr {
namespace {

/// Writes down what the loader asks for, in the order in which it asks.
class RecordingWindow : public LoadProjectWindow {
  public:
    std::vector<std::string> calls;
    std::vector<double> progress;
    std::vector<ShortFile> shortFiles;

    void ShowProgress() override { calls.emplace_back("ShowProgress"); }
    void SetProgress(double value) override { progress.push_back(value); }
    void ShowProjectName(const std::string &name) override { calls.push_back("ShowProjectName " + name); }
    void TellNoMap() override { calls.emplace_back("TellNoMap"); }
    void CloseProgress() override { calls.emplace_back("CloseProgress"); }
    void LoadMapPicture(const std::string &path) override { calls.push_back("LoadMapPicture " + path); }
    void EnableProjectControls() override { calls.emplace_back("EnableProjectControls"); }
    void CopyMapPicture() override { calls.emplace_back("CopyMapPicture"); }
    void DrawFrontlines() override { calls.emplace_back("DrawFrontlines"); }
    void DrawRailways() override { calls.emplace_back("DrawRailways"); }
    void ResetViewSelectors() override { calls.emplace_back("ResetViewSelectors"); }
    void ZoomTo100() override { calls.emplace_back("ZoomTo100"); }
    void UpdateRecentProjects() override { calls.emplace_back("UpdateRecentProjects"); }
    void SelectFirstItems() override { calls.emplace_back("SelectFirstItems"); }
    void TellShortFiles(const std::vector<ShortFile> &files) override {
        calls.emplace_back("TellShortFiles");
        shortFiles = files;
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
    EXPECT_EQ(window.calls, (std::vector<std::string>{
                                "ShowProgress", "ShowProjectName North front",
                                "LoadMapPicture " + folder.Path() + "m.bmp", "EnableProjectControls",
                                "CopyMapPicture", "DrawFrontlines", "DrawRailways", "ResetViewSelectors",
                                "ZoomTo100", "UpdateRecentProjects", "SelectFirstItems", "CloseProgress"}));
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
    EXPECT_TRUE(window.shortFiles.empty());
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
    EXPECT_THAT(bar.BarBeforeCalls(), ::testing::ElementsAreArray(std::vector<std::pair<std::string, double>>{
                                          {"ShowProgress", -1},
                                          {"ShowProjectName", 15},
                                          {"LoadMapPicture", 15},
                                          {"EnableProjectControls", 20},
                                          {"CopyMapPicture", 76},
                                          {"DrawFrontlines", 76},
                                          {"DrawRailways", 76},
                                          {"ResetViewSelectors", 76},
                                          {"ZoomTo100", 76},
                                          {"UpdateRecentProjects", 76},
                                          {"SelectFirstItems", 76},
                                          {"CloseProgress", 100}}));
    EXPECT_EQ(std::count(bar.progress.begin(), bar.progress.end(), 20.0), 1) << "before the first reader";
}

/// Sees which tables of the campaign hold something whenever the bar moves.
struct TableWatcher : SilentWindow {
    explicit TableWatcher(const Campaign &watched) : campaign(watched) {}

    void SetProgress(double) override {
        const auto note = [this](const char *table, bool filled) {
            if (filled && std::ranges::count(filledInOrder, table) == 0)
                filledInOrder.emplace_back(table);
        };
        note("terrain", campaign.terrain != empty->terrain);
        note("target names", campaign.TargetNameTable != empty->TargetNameTable);
        note("targets", campaign.TargetTable != empty->TargetTable);
        note("railway", campaign.RailwayTable != empty->RailwayTable);
        note("frontlines", campaign.FrontlineTable != empty->FrontlineTable);
        note("road waypoints", HoldsWaypoints(campaign.RoadWaypointTable));
        note("rail waypoints", HoldsWaypoints(campaign.RailWaypointTable));
        note("airfields", campaign.AirfieldTable != empty->AirfieldTable);
    }
    template <std::size_t Total>
    static bool HoldsWaypoints(const std::array<WaypointPath, Total> &paths) {
        return std::ranges::any_of(paths, [](const WaypointPath &path) { return path.count != 0; });
    }

    const Campaign &campaign;
    std::unique_ptr<Campaign> empty = std::make_unique<Campaign>();
    std::vector<std::string> filledInOrder;
};

TEST_F(LoadProjectTest, TheFilesAreReadOneAfterTheOtherNamesBeforeTargetsAndAirfieldsLast) {
    WriteSampleCampaign(folder.Path(), false);
    TableWatcher watcher(*campaign);
    LoadProject(folder.Path() + "sample.prj", *campaign, watcher);
    EXPECT_THAT(watcher.filledInOrder,
                ::testing::ElementsAre("terrain", "target names", "targets", "railway", "frontlines",
                                       "road waypoints", "rail waypoints", "airfields"));
}

TEST_F(LoadProjectTest, TheProjectCountsAsLoadedOnceItsMapPictureIs) {
    struct Watcher : SilentWindow {
        explicit Watcher(const Campaign &watched) : campaign(watched) {}
        void LoadMapPicture(const std::string &) override { atMapPicture = campaign.ProjectLoaded; }
        void EnableProjectControls() override { atControls = campaign.ProjectLoaded; }
        const Campaign &campaign;
        bool atMapPicture = true;
        bool atControls = false;
    };
    Watcher watcher(*campaign);
    LoadProject(folder.Make("p.prj", "Map=m.bmp\r\n"), *campaign, watcher);
    EXPECT_FALSE(watcher.atMapPicture);
    EXPECT_TRUE(watcher.atControls);
}

TEST_F(LoadProjectTest, AMapOfNoneStopsWithAMessageAndKeepsWhatWasLoadedButThePathsAndTheName) {
    campaign->TargetTable[0].x = 77;
    Load("Name=Second\r\nMap=NONE\r\nMapTM=VTR.TM\r\n");
    EXPECT_EQ(window.calls, (std::vector<std::string>{"ShowProgress", "ShowProjectName Second", "TellNoMap",
                                                      "CloseProgress"}));
    EXPECT_FALSE(campaign->ProjectLoaded);
    EXPECT_EQ(campaign->TargetTable[0].x, 77);
    EXPECT_EQ(campaign->paths.Name, "Second");
}

TEST_F(LoadProjectTest, TheMapsNameMayBeWrittenInTheGamesLetters) {
    Load("Name=x\r\nMap=K\xF6ln.bmp\r\n");
    EXPECT_THAT(window.calls, ::testing::Contains("LoadMapPicture " + folder.Path() + "K\u00F6ln.bmp"));
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
    ASSERT_EQ(window.shortFiles.size(), 2U);
    EXPECT_EQ(window.calls.back(), "TellShortFiles");
    EXPECT_EQ(window.shortFiles[0].path, folder.Path() + "VTR.TM");
    EXPECT_EQ(window.shortFiles[0].found, 1000U);
    EXPECT_EQ(window.shortFiles[0].expected, 204800U);
    EXPECT_EQ(window.shortFiles[1].path, folder.Path() + "TARGET.DAT");
    EXPECT_EQ(window.shortFiles[1].found, 3211U);
    EXPECT_EQ(window.shortFiles[1].expected, 9668U);
    EXPECT_EQ(campaign->TargetTable[200].code, 0);
    EXPECT_EQ(campaign->terrain[2000], 0);
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
    struct ReadsTheMap : RecordingWindow {
        void LoadMapPicture(const std::string &path) override {
            RecordingWindow::LoadMapPicture(path);
            ReadWholeFile(path);
        }
    };
    ReadsTheMap first;
    const std::string path = folder.Path() + "new.prj";
    const Error error = ErrorThrownBy([&] { LoadProject(path, *campaign, first); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(error.File(), folder.Path()) << "without a name the map's path is the project's folder";
    EXPECT_EQ(error.Found(), "a folder");
    EXPECT_EQ(std::filesystem::file_size(path), 0U);
    EXPECT_EQ(first.calls, (std::vector<std::string>{"ShowProgress", "ShowProjectName ",
                                                     "LoadMapPicture " + folder.Path()}));
    EXPECT_EQ(first.progress, (std::vector<double>{0, 15}));
    EXPECT_FALSE(campaign->ProjectLoaded);
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
