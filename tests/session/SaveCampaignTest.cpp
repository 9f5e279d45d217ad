#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

#include "FolderLock.h"
#include "LoadedProject.h"
#include "SaveCampaign.h"
#include "StoppedSave.h"
#include "SystemCalls.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using SaveCampaignTest = LoadedProject;

TEST_F(SaveCampaignTest, FilesThatNobodyElseChangedAreSavedAgainAndAgainWithoutAQuestion) {
    for (int save = 0; save < 3; ++save) {
        session->campaign.TargetTable[12].x = static_cast<std::int16_t>(100 + save);
        ASSERT_TRUE(Save(allBoxes)->Succeeded());
    }
    EXPECT_THAT(answers.askedToOverwrite, IsEmpty());
}

TEST_F(SaveCampaignTest, AsksOnceForAllTickedFilesThatAnotherProgramChanged) {
    for (const char *name : {"TARGET.DAT", "FRNTLINE.DAT", "VTR_RRD.DAT"})
        ChangeBehindOurBack(name);
    SaveBoxes ticked = allBoxes;
    ticked[4] = false;
    EXPECT_TRUE(Save(ticked)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre("TARGET.DAT", "VTR_RRD.DAT")));
    EXPECT_TRUE(Save(ticked)->Succeeded());
    EXPECT_EQ(answers.askedToOverwrite.size(), 1U);
}

TEST_F(SaveCampaignTest, EachOfTheSixFilesIsWatched) {
    for (const char *name :
         {"TARGET.DAT", "TARNAMES.STR", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT", "GRIDDATA.DAT"}) {
        ChangeBehindOurBack(name);
        EXPECT_TRUE(Save(allBoxes)->Succeeded());
        EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre(name)));
        answers.askedToOverwrite.clear();
    }
}

TEST_F(SaveCampaignTest, AfterNoNothingIsWrittenAndTheNextSaveAsksAgain) {
    ChangeBehindOurBack("TARGET.DAT");
    const std::string theirs = folder.Content("TARGET.DAT");
    const std::string frontlines = folder.Content("FRNTLINE.DAT");
    session->campaign.FrontlineTable[0].points[0].x = 77;
    answers.yes = false;
    EXPECT_FALSE(Save(allBoxes));
    EXPECT_FALSE(Save(allBoxes));
    EXPECT_EQ(answers.askedToOverwrite.size(), 2U);
    EXPECT_EQ(folder.Content("TARGET.DAT"), theirs);
    EXPECT_EQ(folder.Content("FRNTLINE.DAT"), frontlines);
}

TEST_F(SaveCampaignTest, AFileThatChangesWhileTheQuestionIsAskedIsAskedForAgain) {
    ChangeBehindOurBack("TARGET.DAT");
    int times = 0;
    answers.meanwhile = [&] {
        if (++times == 1)
            ChangeBehindOurBack("AIRFIELD.DAT");
    };
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite,
                ElementsAre(ElementsAre("TARGET.DAT"), ElementsAre("AIRFIELD.DAT")));
}

TEST_F(SaveCampaignTest, AFileThatIsTouchedOrGoneIsNoQuestion) {
    const std::string path = folder.Path() + "TARGET.DAT";
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::seconds(5));
    std::filesystem::remove(folder.Path() + "TARNAMES.STR");
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, IsEmpty());
}

TEST_F(SaveCampaignTest, AnUnreadGridFileIsKnownByItsTimeUntilItIsWritten) {
    const std::string path = folder.Path() + "GRIDDATA.DAT";
    const auto touch = [&path] {
        std::filesystem::last_write_time(path,
                                         std::filesystem::last_write_time(path) + std::chrono::seconds(5));
    };
    touch();
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre("GRIDDATA.DAT")));
    touch();
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_EQ(answers.askedToOverwrite.size(), 1U);
}

TEST_F(SaveCampaignTest, AFileThatChangesWhileOthersAreWrittenStopsTheSaveBeforeIt) {
    session->dataFolder.clear();
    std::optional<SaveOutcome> outcome;
    {
        // The second file is not yet written when the first one's folder is flushed.
        const SystemCalls calls(
            {{.call = "fsync", .nth = 2, .lookOn = [this] { ChangeBehindOurBack("FRNTLINE.DAT"); }}});
        outcome = Save(allBoxes);
    }
    ASSERT_TRUE(outcome && outcome->failure);
    EXPECT_EQ(outcome->failure->File(), folder.Path() + "FRNTLINE.DAT");
    EXPECT_EQ(outcome->failure->Found(), "one that another program has changed since");
    EXPECT_THAT(outcome->notWritten, ElementsAre("FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"));
    EXPECT_THAT(answers.askedToOverwrite, IsEmpty());
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre("FRNTLINE.DAT")));
}

TEST_F(SaveCampaignTest, AFileReplacedBeforeItsStepFailedIsOurs) {
    session->dataFolder.clear();
    {
        const SystemCalls calls({{"fsync", 4, EIO}});
        EXPECT_TRUE(Save(allBoxes)->failure->FileReplaced());
    }
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, IsEmpty());
}

TEST_F(SaveCampaignTest, AShortTemplateNeverBlendsWithATargetsFileThatAnotherChangedUnasked) {
    program.Make("targetbase.dat", std::string(std::size_t{32} * 10, '\x55'));
    constexpr std::size_t unknownByteOfTarget100 = 4 + 32 * 100 + 9;
    ChangeBehindOurBack("TARGET.DAT", unknownByteOfTarget100);
    answers.yes = false;
    EXPECT_FALSE(Save({true}));
    EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre("TARGET.DAT")));
}

TEST_F(SaveCampaignTest, FilesOfAProjectThatWereNeverReadAreNoQuestion) {
    TemporaryFolder other;
    for (const char *name : {"TARGET.DAT", "AIRFIELD.DAT"})
        other.Make(name, "of another project");
    LoadProject(other.Make("none.prj", "Map=NONE\r\n"), session->campaign, window, &session->fileStamps);
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, IsEmpty());
    other.Make("TARGET.DAT", "changed after it was written");
    EXPECT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_THAT(answers.askedToOverwrite, ElementsAre(ElementsAre("TARGET.DAT")));
}

TEST_F(SaveCampaignTest, AfterALoadThatFailedTheFilesAreKnownAsBefore) {
    std::filesystem::resize_file(folder.Path() + "TARNAMES.STR", (1 << 20) + 1);
    ChangeBehindOurBack("TARGET.DAT");
    const FileStamps before = session->fileStamps;
    EXPECT_THROW(Load(*session), Error);
    EXPECT_EQ(session->fileStamps, before);
}

/// Gives the tables of four files a value by which they are known again.
void Mark(Campaign &campaign, std::int16_t value) {
    campaign.TargetTable[12].x = value;
    campaign.FrontlineTable[0].points[0].x = value;
    campaign.AirfieldTable[3].index_byte = static_cast<std::uint8_t>(value);
    campaign.RailwayTable[5].x1 = value;
}

bool IsMarked(const Campaign &campaign, std::int16_t value) {
    return campaign.TargetTable[12].x == value && campaign.FrontlineTable[0].points[0].x == value &&
           campaign.AirfieldTable[3].index_byte == value && campaign.RailwayTable[5].x1 == value;
}

/// Waits for a child and gives its exit status, or 100 and the signal that killed it.
int StatusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + WTERMSIG(status);
}

TEST_F(SaveCampaignTest, OfTwoEditorsThatSaveOneProjectAtOnceExactlyOneWritesAndAllOfItsFiles) {
    constexpr int wrote = 0;
    constexpr int askedAndRefused = 1;
    constexpr int wasToldOfTheOther = 2;
    for (int trial = 0; trial < 25; ++trial) {
        std::array<int, 2> start{};
        ASSERT_EQ(pipe(start.data()), 0);
        std::array<pid_t, 2> editors{};
        for (std::size_t i = 0; i < editors.size(); ++i)
            if (editors[i] = fork(); editors[i] == 0) {
                Load(*session);
                Mark(session->campaign, static_cast<std::int16_t>(100 + 2 * trial + static_cast<int>(i)));
                answers.yes = false;
                close(start[1]);
                char byte = 0;
                (void)!read(start[0], &byte, 1);  // both wait for its end
                const auto outcome = Save(allBoxes);
                _exit(!outcome ? askedAndRefused : outcome->Succeeded() ? wrote : wasToldOfTheOther);
            }
        close(start[0]);
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        close(start[1]);
        std::vector<std::size_t> writers;
        for (std::size_t i = 0; i < editors.size(); ++i) {
            const int status = StatusOf(editors[i]);
            EXPECT_LE(status, wasToldOfTheOther);
            if (status == wrote)
                writers.push_back(i);
        }
        Load(*session);
        ASSERT_EQ(writers.size(), 1U);
        ASSERT_TRUE(IsMarked(session->campaign,
                             static_cast<std::int16_t>(100 + 2 * trial + static_cast<int>(writers[0]))));
    }
}

TEST_F(SaveCampaignTest, ASaveIsRefusedWhileAnotherEditorSavesTheProject) {
    MakeVersionsFolder(session->dataFolder, session->campaign.paths);
    const FolderLock others = LockFolder(VersionsFolder());
    const auto outcome = Save({true, true});
    ASSERT_TRUE(outcome && outcome->failure);
    EXPECT_EQ(outcome->failure->Found(), "another editor that is saving it at this moment");
    EXPECT_THAT(outcome->notWritten, ElementsAre("TARGET.DAT", "TARNAMES.STR"));
    EXPECT_THAT(Sets(), IsEmpty());
}

TEST_F(SaveCampaignTest, ASaveKilledBetweenTwoFilesIsFoundByTheNextLoadAndASaveThatWentThroughIsNot) {
    ASSERT_TRUE(Save(allBoxes)->Succeeded());
    EXPECT_EQ(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
    const pid_t child = fork();
    if (child == 0) {
        // One flush for the note, two for each file.
        const SystemCalls calls({{.call = "fsync", .nth = 6, .lookOn = [] { raise(SIGKILL); }}});
        Save(allBoxes);
        _exit(0);
    }
    ASSERT_EQ(StatusOf(child), 100 + SIGKILL);
    EXPECT_THAT(FilesOfStoppedSave(VersionsFolder()),
                ::testing::Optional(ElementsAre("TARGET.DAT", "TARNAMES.STR", "GRIDDATA.DAT", "FRNTLINE.DAT",
                                                "AIRFIELD.DAT", "VTR_RRD.DAT")));
    Load(*session);
    ASSERT_TRUE(Save({true, true, true, false, true})->Succeeded());
    EXPECT_THAT(FilesOfStoppedSave(VersionsFolder()),
                ::testing::Optional(ElementsAre("AIRFIELD.DAT", "VTR_RRD.DAT")));
    ASSERT_TRUE(Save({false, false, false, false, false, true, true})->Succeeded());
    EXPECT_EQ(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
}

TEST_F(SaveCampaignTest, ANoteWhoseTextWasLostStandsForAllFilesThatTheProjectNames) {
    session->campaign.paths.Airfield.clear();
    for (const std::string &text : {std::string(), std::string(60, '\0')}) {
        MakeVersionsFolder(session->dataFolder, session->campaign.paths);
        std::ofstream(VersionsFolder() + "saving.txt") << text;
        EXPECT_THAT(FilesOfStoppedSave(VersionsFolder()), ::testing::Optional(IsEmpty()));
        ASSERT_TRUE(Save({true})->Succeeded());
        EXPECT_THAT(
            FilesOfStoppedSave(VersionsFolder()),
            ::testing::Optional(ElementsAre("TARNAMES.STR", "GRIDDATA.DAT", "FRNTLINE.DAT", "VTR_RRD.DAT")));
        ASSERT_TRUE(Save({false, true, true, false, true, true, true})->Succeeded());
        EXPECT_EQ(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
    }
}

TEST_F(SaveCampaignTest, ASaveThatAnotherProcessIsAtIsNoStoppedOne) {
    MakeVersionsFolder(session->dataFolder, session->campaign.paths);
    NoteSave(VersionsFolder(), {"TARGET.DAT"});
    {
        const FolderLock others = LockFolder(VersionsFolder());
        EXPECT_EQ(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
    }
    EXPECT_NE(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
}

TEST_F(SaveCampaignTest, AStopHalfWayLeavesTheNoteAndAStopBeforeTheFirstFileDoesNot) {
    const auto blockWriting = [this](const char *name) {
        std::filesystem::remove(folder.Path() + name);
        std::filesystem::create_directory(folder.Path() + name);
    };
    blockWriting("TARGET.DAT");
    SaveOutcome outcome = *Save(allBoxes);
    EXPECT_TRUE(outcome.failure);
    EXPECT_FALSE(outcome.LeavesMixture());
    EXPECT_EQ(FilesOfStoppedSave(VersionsFolder()), std::nullopt);
    std::filesystem::remove(folder.Path() + "TARGET.DAT");
    blockWriting("AIRFIELD.DAT");
    outcome = *Save(allBoxes);
    EXPECT_TRUE(outcome.LeavesMixture());
    EXPECT_THAT(FilesOfStoppedSave(VersionsFolder()),
                ::testing::Optional(ElementsAre("AIRFIELD.DAT", "VTR_RRD.DAT")));
}

}  // namespace
}  // namespace vtr
