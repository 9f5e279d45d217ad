#include <gmock/gmock.h>

#include "LoadedProject.h"
#include "SaveCampaign.h"
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
    std::optional<SaveOutcome> outcome;
    {
        // The third file flushed is the second that is written.
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

}  // namespace
}  // namespace vtr
