#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>

#include "Differences.h"
#include "EarlierVersions.h"
#include "LoadedProject.h"
#include "SystemCalls.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class EarlierVersionsTest : public LoadedProject {
  protected:
    /// A set with the railway's file alone, made by nobody's save.
    std::string MakeSet(int minute) const {
        std::array<char, 32> name{};
        std::snprintf(name.data(), name.size(), "20260101-12%02d00-000", minute);
        const std::string set = VersionsFolder() + name.data();
        fs::create_directories(set);
        std::ofstream(set + "/VTR_RRD.DAT") << minute;
        return set;
    }
};

TEST_F(EarlierVersionsTest, TheFirstSaveKeepsWhatEachOfItsFilesWasAndLaterOnesOfTheSessionKeepNoMore) {
    const std::string targets = folder.Content("TARGET.DAT");
    const std::string grid = folder.Content("GRIDDATA.DAT");
    session->campaign.TargetTable[12].x = 111;
    ASSERT_TRUE(Save({true, false, true})->Succeeded());
    session->campaign.TargetTable[12].x = 112;
    ASSERT_TRUE(Save({true, false, true})->Succeeded());
    ASSERT_THAT(Sets(), SizeIs(1));
    EXPECT_THAT(NamesOf(Sets()[0]), ElementsAre("TARGET.DAT", "GRIDDATA.DAT"));
    EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), targets);
    EXPECT_EQ(ContentOf(Sets()[0].folder + "GRIDDATA.DAT"), grid);
    EXPECT_NEAR(static_cast<double>(Sets()[0].time), static_cast<double>(std::time(nullptr)), 5);

    ASSERT_TRUE(Save({false, false, false, false, false, true})->Succeeded());
    ASSERT_THAT(Sets(), SizeIs(1));
    EXPECT_THAT(NamesOf(Sets()[0]), ElementsAre("TARGET.DAT", "GRIDDATA.DAT", "AIRFIELD.DAT"));
}

TEST_F(EarlierVersionsTest, EachSessionHasItsOwnSet) {
    for (int run = 0; run < 3; ++run) {
        Load(*session);
        session->campaign.TargetTable[12].x = static_cast<std::int16_t>(50 + run);
        ASSERT_TRUE(Save({true})->Succeeded());
    }
    ASSERT_THAT(Sets(), SizeIs(3));
    EXPECT_GT(Sets()[0].folder, Sets()[1].folder);
    const TakenBack newest = ReadVersions(Sets()[0], Sets()[0].files, session->campaign);
    EXPECT_EQ(newest.campaign->TargetTable[12].x, 51);
}

TEST_F(EarlierVersionsTest, WhatAnotherProgramWroteIsKeptInASetOfItsOwnBeforeItIsOverwritten) {
    ASSERT_TRUE(Save({true, true})->Succeeded());
    ChangeBehindOurBack("TARGET.DAT");
    const std::string theirs = folder.Content("TARGET.DAT");
    ASSERT_TRUE(Save({true, true})->Succeeded());
    ASSERT_THAT(Sets(), SizeIs(2));
    EXPECT_THAT(NamesOf(Sets()[0]), ElementsAre("TARGET.DAT"));
    EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), theirs);
}

TEST_F(EarlierVersionsTest, TheNewestTwentySetsStayAndWhatIsNotOursIsNeverRemoved) {
    for (int minute = 0; minute < 21; ++minute)
        MakeSet(minute);
    const std::string mixed = MakeSet(1);
    std::ofstream(mixed + "/notes.txt") << "mine";
    const std::string foreign = VersionsFolder() + "20260101-backup";
    fs::create_directory(foreign);
    std::ofstream(foreign + "/VTR_RRD.DAT") << "mine";
    const std::string empty = VersionsFolder() + "20260101-110000-000";
    fs::create_directory(empty);
    TemporaryFolder elsewhere;
    elsewhere.Make("VTR_RRD.DAT", "mine");
    fs::create_directory_symlink(elsewhere.Path(), VersionsFolder() + "20250101-120000-000");
    ASSERT_THAT(Sets(), SizeIs(21));
    ASSERT_TRUE(Save({true})->Succeeded());
    EXPECT_THAT(Sets(), SizeIs(20));
    EXPECT_THAT(NamesOf(Sets()[0]), ElementsAre("TARGET.DAT"));
    EXPECT_FALSE(fs::exists(VersionsFolder() + "20260101-120000-000"));
    EXPECT_TRUE(fs::exists(VersionsFolder() + "20260101-120200-000"));
    EXPECT_TRUE(fs::exists(mixed + "/notes.txt"));
    EXPECT_TRUE(fs::exists(foreign + "/VTR_RRD.DAT"));
    EXPECT_TRUE(fs::exists(elsewhere.Path() + "VTR_RRD.DAT"));
}

TEST_F(EarlierVersionsTest, TwoProjectsHaveTwoFoldersWhichTellWhoseTheyAre) {
    ASSERT_TRUE(Save({true})->Succeeded());
    EXPECT_EQ(ContentOf(VersionsFolder() + "project.txt"),
              "Earlier versions of the files of " + folder.Path() + "sample.prj\n");
    EXPECT_THAT(VersionsFolder(), ::testing::StartsWith(data.Path() + "versions/sample-"));
    const std::string first = VersionsFolder();
    TemporaryFolder other;
    session->campaign.paths.ProjectDir = other.Path();
    EXPECT_NE(VersionsFolder(), first);
    other.Make("TARGET.DAT", "of the other project");
    ASSERT_TRUE(Save({true})->Succeeded());
    ASSERT_THAT(Sets(), SizeIs(1));
    EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), "of the other project");
}

TEST_F(EarlierVersionsTest, TwoCampaignsWhoseProjectFilesAreLinksToOneHaveTwoFolders) {
    TemporaryFolder other;
    fs::create_symlink(folder.Path() + "sample.prj", other.Path() + "sample.prj");
    const std::string first = VersionsFolder();
    session->campaign.paths.ProjectDir = other.Path();
    EXPECT_NE(VersionsFolder(), first);
}

TEST_F(EarlierVersionsTest, AProjectReachedThroughALinkToItsFolderHasTheSameFolder) {
    TemporaryFolder other;
    fs::create_directory_symlink(folder.Path(), other.Path() + "link");
    const std::string first = VersionsFolder();
    session->campaign.paths.ProjectDir = other.Path() + "link/";
    EXPECT_EQ(VersionsFolder(), first);
}

TEST_F(EarlierVersionsTest, WithoutADataFolderNothingIsKept) {
    session->dataFolder.clear();
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_EQ(VersionsFolder(), "");
    EXPECT_THAT(data.Names(), IsEmpty());
}

TEST_F(EarlierVersionsTest, ACopyIsOnTheDiskBeforeTheFirstFileIsOverwritten) {
    const std::string targets = folder.Content("TARGET.DAT");
    session->campaign.TargetTable[12].x = 111;
    ASSERT_TRUE(Save({false, true})->Succeeded());
    bool looked = false;
    // The copy, its set, the folder of the sets and the note there: then the file itself.
    const SystemCalls calls({{.call = "fsync", .nth = 5, .lookOn = [&] {
                                  looked = true;
                                  EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), targets);
                                  EXPECT_EQ(folder.Content("TARGET.DAT"), targets);
                              }}});
    ASSERT_TRUE(Save({true})->Succeeded());
    EXPECT_TRUE(looked);
    EXPECT_NE(folder.Content("TARGET.DAT"), targets);
}

TEST_F(EarlierVersionsTest, ACopyThatFailsIsAQuestionAndNoWritesNothing) {
    const std::string targets = folder.Content("TARGET.DAT");
    session->campaign.TargetTable[12].x = 111;
    MakeVersionsFolder(session->dataFolder, session->campaign.paths);
    answers.yes = false;
    {
        const SystemCalls calls({{"write", 2, ENOSPC}});
        EXPECT_FALSE(Save(allBoxes));
    }
    ASSERT_THAT(answers.notKept, SizeIs(1));
    EXPECT_THAT(answers.notKept[0].File(), ::testing::EndsWith("TARNAMES.STR"));
    EXPECT_EQ(answers.notKept[0].Step(), "writing the temporary file");
    EXPECT_EQ(folder.Content("TARGET.DAT"), targets);
    EXPECT_THAT(Sets(), IsEmpty()) << "half a set was left";

    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.notKept, SizeIs(1));
    EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), targets);
    EXPECT_THAT(Sets()[0].files, SizeIs(6));
}

TEST_F(EarlierVersionsTest, WithAFullDiskOrAReadOnlyDataFolderYesSavesWithoutOneQuestionMore) {
    for (const char *call : {"write", "fsync", "openat"}) {
        Load(*session);
        session->campaign.TargetTable[12].x =
            static_cast<std::int16_t>(session->campaign.TargetTable[12].x ^ 1);
        MakeVersionsFolder(session->dataFolder, session->campaign.paths);
        answers.notKept.clear();
        const SystemCalls calls({{call, 1, ENOSPC}});
        ASSERT_TRUE(Save(allBoxes)->Succeeded()) << call;
        EXPECT_THAT(answers.notKept, SizeIs(1)) << call;
    }
    data.Make("file", "no folder can be made in a file");
    session->dataFolder = data.Path() + "file/";
    Load(*session);
    answers.notKept.clear();
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    ASSERT_THAT(answers.notKept, SizeIs(1));
    EXPECT_EQ(answers.notKept[0].Step(), "making the folder");
}

TEST_F(EarlierVersionsTest, SavesThatWriteNothingPushNoSetOut) {
    for (std::size_t minute = 0; minute < versionSetTotal; ++minute)
        MakeSet(static_cast<int>(minute));
    const std::vector<VersionSet> before = Sets();
    ASSERT_THAT(before, SizeIs(versionSetTotal));
    for (int load = 0; load < 3; ++load) {
        Load(*session);
        session->campaign.TargetTable[12].x = static_cast<std::int16_t>(50 + load);
        const SystemCalls calls({{.call = "write", .nth = 7, .error = EROFS}});  // six copies before it
        EXPECT_TRUE(Save(allBoxes)->written.empty());
    }
    ASSERT_THAT(Sets(), SizeIs(versionSetTotal));
    EXPECT_EQ(Sets().front().folder, before.front().folder);
    EXPECT_EQ(Sets().back().folder, before.back().folder);

    const std::string targets = folder.Content("TARGET.DAT");
    ASSERT_TRUE(Save({true})->Succeeded());
    EXPECT_EQ(ContentOf(Sets()[0].folder + "TARGET.DAT"), targets);
}

TEST_F(EarlierVersionsTest, WhoSaidYesIsNotAskedAgainInTheSession) {
    data.Make("file", "no folder can be made in a file");
    session->dataFolder = data.Path() + "file/";
    for (int save = 0; save < 3; ++save)
        ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.notKept, SizeIs(1));
    Load(*session);
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.notKept, SizeIs(2));
}

TEST_F(EarlierVersionsTest, AfterNoTheNextSaveAsksAgain) {
    data.Make("file", "no folder can be made in a file");
    session->dataFolder = data.Path() + "file/";
    answers.yes = false;
    EXPECT_FALSE(Save(allBoxes));
    EXPECT_FALSE(Save(allBoxes));
    EXPECT_THAT(answers.notKept, SizeIs(2));
}

TEST_F(EarlierVersionsTest, WhenAllIsKeptAndOnlyTheNoteOfTheSaveCannotBeMadeNothingIsAsked) {
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    fs::create_directory(VersionsFolder() + "saving.txt");  // no file can be made there
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.notKept, IsEmpty());
}

TEST_F(EarlierVersionsTest, TakingFilesBackReadsThemAsALoadDoesAndLeavesTheOthersAlone) {
    const auto before = std::make_unique<Campaign>(session->campaign);
    Campaign &campaign = session->campaign;
    campaign.TargetTable[12].x = 111;
    campaign.TargetNameTable[campaign.TargetTable[12].code] = "Renamed";
    for (TargetRecord &target : campaign.TargetTable)
        target.name = campaign.TargetNameTable[target.code];
    campaign.RailwayTable[7] = {};
    campaign.firstDisabledRailwayLine = 7;
    campaign.FrontlineTable[2].points[0].x = 99;
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    const VersionSet set = Sets()[0];

    EXPECT_THAT(DifferencesOf(*before, *ReadVersions(set, set.files, campaign).campaign), IsEmpty());
    const auto only = [&set](std::string_view name) {
        return std::vector<const CampaignFile *>{
            *std::ranges::find(set.files, name, &CampaignFile::usualName)};
    };
    const TakenBack names = ReadVersions(set, only("TARNAMES.STR"), campaign);
    EXPECT_EQ(names.campaign->TargetTable[12].x, 111);
    EXPECT_EQ(names.campaign->TargetTable[12].name, before->TargetTable[12].name);
    EXPECT_EQ(names.campaign->FrontlineTable, campaign.FrontlineTable);
    const TakenBack targets = ReadVersions(set, only("TARGET.DAT"), campaign);
    EXPECT_EQ(targets.campaign->TargetTable[12].x, before->TargetTable[12].x);
    EXPECT_EQ(targets.campaign->TargetTable[12].name, "Renamed");
    const TakenBack grid = ReadVersions(set, only("GRIDDATA.DAT"), campaign);
    EXPECT_THAT(DifferencesOf(campaign, *grid.campaign), IsEmpty());
}

TEST_F(EarlierVersionsTest, ADamagedFileIsToldAndTheOthersAreTakenBack) {
    const std::int16_t x = session->campaign.TargetTable[12].x;
    session->campaign.TargetTable[12].x = 111;
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    const VersionSet set = Sets()[0];
    fs::resize_file(set.folder + "TARNAMES.STR", (1 << 20) + 1);
    fs::resize_file(set.folder + "AIRFIELD.DAT", 100);
    const TakenBack taken = ReadVersions(set, set.files, session->campaign);
    ASSERT_THAT(taken.damaged, SizeIs(1));
    EXPECT_EQ(taken.damaged[0].File(), set.folder + "TARNAMES.STR");
    ASSERT_THAT(taken.shortFiles, SizeIs(1));
    EXPECT_EQ(taken.shortFiles[0].path, set.folder + "AIRFIELD.DAT");
    EXPECT_EQ(taken.campaign->TargetTable[12].x, x);
    EXPECT_EQ(taken.campaign->TargetNameTable, session->campaign.TargetNameTable);
}

}  // namespace
}  // namespace vtr
