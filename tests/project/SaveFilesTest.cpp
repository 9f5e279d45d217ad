#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>

#include "Paths.h"
#include "ReaderTesting.h"
#include "SampleCampaign.h"
#include "SaveFiles.h"
#include "SilentWindow.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct WrittenFile {
    std::size_t box;
    const char *name;
    std::string ProjectPaths::*key;
};

/// In the order in which they are to be written.
constexpr std::array<WrittenFile, 6> writtenFiles{{{0, "TARGET.DAT", &ProjectPaths::Targets},
                                                   {1, "TARNAMES.STR", &ProjectPaths::TarNames},
                                                   {2, "GRIDDATA.DAT", &ProjectPaths::GridData},
                                                   {4, "FRNTLINE.DAT", &ProjectPaths::Frontline},
                                                   {5, "AIRFIELD.DAT", &ProjectPaths::Airfield},
                                                   {6, "VTR_RRD.DAT", &ProjectPaths::Railway}}};

constexpr SaveBoxes allBoxes{true, true, true, true, true, true, true, true, true, true, true};

using Files = std::map<std::string, std::string>;
using Captions = std::vector<std::string_view>;

/// The sample campaign in memory, and on disk with the second byte of each file that can be written spoilt:
/// a write mends the file.
class SaveFilesTest : public ::testing::Test {
  protected:
    SaveFilesTest() {
        WriteSampleCampaign(folder.Path(), false);
        LoadProject(folder.Path() + "sample.prj", *campaign, window);
        whole = FilesOnDisk();
        spoilt = whole;
        for (const WrittenFile &file : writtenFiles) {
            spoilt[file.name].at(1) = '\xEE';
            EXPECT_NE(whole[file.name], spoilt[file.name]);
            folder.Make(file.name, spoilt[file.name]);
        }
    }

    Files FilesOnDisk() const {
        Files files;
        for (const std::string &name : folder.Names())
            if (!std::filesystem::is_directory(folder.Path() + name))
                files[name] = folder.Content(name);
        return files;
    }

    void Save(const SaveBoxes &ticked) { outcome = SaveFiles(*campaign, ticked, program.Path()); }

    Error FailureOfSave(const SaveBoxes &ticked) {
        Save(ticked);
        return outcome.failure.value();
    }

    /// What the disk holds when only the files of boxes have been written.
    Files WithMended(const std::vector<std::size_t> &boxes) const {
        Files files = spoilt;
        for (const WrittenFile &file : writtenFiles)
            if (std::ranges::count(boxes, file.box) > 0)
                files[file.name] = whole.at(file.name);
        return files;
    }

    TemporaryFolder folder;
    TemporaryFolder program;
    SilentWindow window;
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    Files whole;
    Files spoilt;
    SaveOutcome outcome;
};

TEST_F(SaveFilesTest, SaveAllWritesTheSixFilesAndNoOther) {
    Save(allBoxes);
    EXPECT_EQ(FilesOnDisk(), WithMended({0, 1, 2, 4, 5, 6}));
    EXPECT_THAT(outcome.written, ElementsAre("TARGET.DAT", "TARNAMES.STR", "GRIDDATA.DAT", "FRNTLINE.DAT",
                                             "AIRFIELD.DAT", "VTR_RRD.DAT"));
    EXPECT_THAT(outcome.notWritten, IsEmpty());
    EXPECT_FALSE(outcome.misfit);
}

TEST_F(SaveFilesTest, AFileThatCannotBeWrittenStopsTheSaveWithTheFilesBeforeItWrittenAndNoneBehindIt) {
    for (std::size_t failing = 0; failing < writtenFiles.size(); ++failing) {
        const std::string name = writtenFiles[failing].name;
        SCOPED_TRACE(name);
        for (const auto &[other, content] : spoilt)
            folder.Make(other, content);
        std::filesystem::remove(folder.Path() + name);
        std::filesystem::create_directory(folder.Path() + name);

        const Error error = FailureOfSave(allBoxes);
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
        EXPECT_EQ(error.File(), folder.Path() + name);
        std::vector<std::size_t> boxesBefore;
        Captions before;
        Captions rest;
        for (std::size_t i = 0; i < writtenFiles.size(); ++i) {
            (i < failing ? before : rest).emplace_back(writtenFiles[i].name);
            if (i < failing)
                boxesBefore.push_back(writtenFiles[i].box);
        }
        Files expected = WithMended(boxesBefore);
        expected.erase(name);
        EXPECT_EQ(FilesOnDisk(), expected);
        EXPECT_EQ(outcome.written, before);
        EXPECT_EQ(outcome.notWritten, rest);
        std::filesystem::remove(folder.Path() + name);
    }
}

TEST_F(SaveFilesTest, AFileThatIsReplacedBeforeItsStepFailsCountsAsWritten) {
    {
        // Each file is flushed before its folder is: the fourth flush is that of the names' folder.
        const SystemCalls calls({{"fsync", 4, EIO}});
        EXPECT_TRUE(FailureOfSave(allBoxes).FileReplaced());
    }
    EXPECT_EQ(FilesOnDisk(), WithMended({0, 1}));
    EXPECT_THAT(outcome.written, ElementsAre("TARGET.DAT", "TARNAMES.STR"));
    EXPECT_THAT(outcome.notWritten,
                ElementsAre("GRIDDATA.DAT", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"));
}

TEST_F(SaveFilesTest, AFailedSaveDoesNotSpeakOfFilesThatTheProjectDoesNotName) {
    campaign->paths.Railway.clear();
    std::filesystem::remove(folder.Path() + "AIRFIELD.DAT");
    std::filesystem::create_directory(folder.Path() + "AIRFIELD.DAT");
    FailureOfSave(allBoxes);
    EXPECT_THAT(outcome.notWritten, ElementsAre("AIRFIELD.DAT"));
}

TEST_F(SaveFilesTest, EachBoxWritesItsOwnFileOnly) {
    for (const WrittenFile &file : writtenFiles) {
        SCOPED_TRACE(file.name);
        for (const auto &[name, content] : spoilt)
            folder.Make(name, content);
        SaveBoxes ticked{};
        ticked[file.box] = true;
        Save(ticked);
        EXPECT_EQ(FilesOnDisk(), WithMended({file.box}));
        EXPECT_THAT(outcome.written, ElementsAre(file.name));
        EXPECT_THAT(outcome.notWritten, IsEmpty());
    }
}

TEST_F(SaveFilesTest, RemovesWhatAKilledSaveLeftInTheProjectsFolder) {
    MakeAbandonedTemporary(folder);
    Save({});
    EXPECT_EQ(FilesOnDisk(), spoilt);
}

TEST_F(SaveFilesTest, NoBoxTickedWritesNothing) {
    Save({});
    EXPECT_EQ(FilesOnDisk(), spoilt);
    EXPECT_THAT(outcome.written, IsEmpty());
    EXPECT_THAT(outcome.notWritten, IsEmpty());
}

TEST_F(SaveFilesTest, TickingOnlyRailWptOrAnotherInterdictionFileWritesNothing) {
    for (const char *name : {"ROADLIST.DAT", "ROADWPT.DAT", "RAILLIST.DAT", "RAILWPT.DAT"})
        spoilt[name].append("changed by another program");
    for (const auto &[name, content] : spoilt)
        folder.Make(name, content);
    for (const std::size_t box : {10U, 7U, 8U, 9U}) {
        SaveBoxes ticked{};
        ticked[box] = true;
        Save(ticked);
        EXPECT_EQ(FilesOnDisk(), spoilt) << box;
        EXPECT_THAT(outcome.written, IsEmpty());
        EXPECT_THAT(outcome.notWritten, IsEmpty());
    }
}

TEST_F(SaveFilesTest, AKeyWithoutAFileNameMakesItsWriterDoNothingAndTheOthersAreWritten) {
    for (const WrittenFile &unnamed : writtenFiles) {
        SCOPED_TRACE(unnamed.name);
        for (const auto &[name, content] : spoilt)
            folder.Make(name, content);
        const std::string kept = std::exchange(campaign->paths.*unnamed.key, "");
        std::vector<std::size_t> named;
        Captions captions;
        for (const WrittenFile &file : writtenFiles) {
            if (file.box == unnamed.box)
                continue;
            named.push_back(file.box);
            captions.emplace_back(file.name);
        }
        Save(allBoxes);
        EXPECT_EQ(FilesOnDisk(), WithMended(named));
        EXPECT_EQ(outcome.written, captions);
        EXPECT_THAT(outcome.notWritten, IsEmpty());
        campaign->paths.*unnamed.key = kept;
    }
}

TEST_F(SaveFilesTest, ATargetThatFitsNoCellIsToldOnceAndTheFilesBehindTheGridDataAreStillWritten) {
    campaign->TargetTable[7].y = 1759;
    Save(allBoxes);
    EXPECT_EQ(outcome.misfit, 7);
    Files onDisk = FilesOnDisk();
    const std::string targets = std::exchange(onDisk["TARGET.DAT"], whole["TARGET.DAT"]);
    EXPECT_EQ(onDisk, WithMended({0, 1, 4, 5, 6})) << "only the grid data is as it was";
    ExpectChangeOnlyWithin(Bytes(whole["TARGET.DAT"].begin(), whole["TARGET.DAT"].end()),
                           Bytes(targets.begin(), targets.end()), 4 + 32 * 7 + 4, 4);
    EXPECT_THAT(outcome.written,
                ElementsAre("TARGET.DAT", "TARNAMES.STR", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"));
    EXPECT_THAT(outcome.notWritten, ElementsAre("GRIDDATA.DAT"));
}

TEST_F(SaveFilesTest, ATargetThatFitsNoCellIsToldAlsoWhenTheProjectNamesNoGridData) {
    campaign->TargetTable[7].y = 1759;
    campaign->paths.GridData.clear();
    Save(allBoxes);
    EXPECT_EQ(outcome.misfit, 7);
    EXPECT_THAT(outcome.notWritten, IsEmpty());
}

TEST_F(SaveFilesTest, AnOverflowInTheGridDataStopsTheSaveThere) {
    for (TargetRecord &target : campaign->TargetTable)
        target.x = target.y = 100;
    const Error error = FailureOfSave(allBoxes);
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), folder.Path() + "GRIDDATA.DAT");
    Files onDisk = FilesOnDisk();
    onDisk["TARGET.DAT"] = whole["TARGET.DAT"];
    EXPECT_EQ(onDisk, WithMended({0, 1}));
    EXPECT_THAT(outcome.written, ElementsAre("TARGET.DAT", "TARNAMES.STR"));
    EXPECT_THAT(outcome.notWritten,
                ElementsAre("GRIDDATA.DAT", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"));
    EXPECT_FALSE(outcome.misfit);
}

TEST_F(SaveFilesTest, TheTargetsTakeTheTemplateOfTheProgramsFolder) {
    program.Make("targetbase.dat", std::string(32 * targetTotal, '\x5A'));
    SaveBoxes ticked{};
    ticked[0] = true;
    Save(ticked);
    const std::string targets = folder.Content("TARGET.DAT");
    ASSERT_EQ(targets.size(), 4 + 32 * targetTotal);
    for (std::size_t record = 4; record < targets.size(); record += 32)
        ASSERT_EQ(targets.substr(record + 26, 6), "\x5A\x5A\x5A\x5A\x5A\x5A") << record;
}

TEST_F(SaveFilesTest, ANameThatLeadsOutOfTheFolderIsNeverWritten) {
    TemporaryFolder elsewhere;
    const std::string outside = elsewhere.Make("profile", "mine");
    for (const std::string &name :
         {"../" + std::string(FileNameOf(elsewhere.Path().substr(0, elsewhere.Path().size() - 1))) +
              "/profile",
          std::string("..\\profile"), std::string("sub/GRIDDATA.DAT"), std::string("..")}) {
        campaign->paths.GridData = name;
        const Error error = FailureOfSave(allBoxes);
        EXPECT_EQ(error.Found(), '"' + name + "\", which leads out of the folder");
        EXPECT_THAT(outcome.written, ElementsAre("TARGET.DAT", "TARNAMES.STR"));
        EXPECT_THAT(outcome.notWritten,
                    ElementsAre("GRIDDATA.DAT", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"));
        EXPECT_EQ(FileOfSaveBox(campaign->paths, 2).objection, "leads out of the folder");
    }
    EXPECT_EQ(elsewhere.Content("profile"), "mine");
}

TEST_F(SaveFilesTest, ANameThatAnotherKeyHasTooIsNeverWrittenInAnyLetterCase) {
    const Files before = FilesOnDisk();
    SaveBoxes grid{};
    grid[2] = true;
    for (const auto &[name, objection] :
         std::map<std::string, std::string>{{"target.dat", "is the file of TARGETS too"},
                                            {campaign->paths.Map, "is the file of MAP too"},
                                            {"RAILLIST.DAT", "is the file of RAILLIST too"},
                                            {"Sample.PRJ", "is the project file itself"}}) {
        campaign->paths.GridData = name;
        EXPECT_EQ(FailureOfSave(grid).Found(), '"' + name + "\", which " + objection);
        EXPECT_EQ(FilesOnDisk(), before);
    }
}

TEST_F(SaveFilesTest, OfAVeryLongNameThatIsNeverWrittenTheReasonIsToldAllTheSame) {
    campaign->paths.GridData = "../" + std::string(100000, 'm');
    const std::string found = FailureOfSave(allBoxes).Found();
    EXPECT_THAT(found, ::testing::EndsWith("mmm...\", which leads out of the folder"));
    EXPECT_LT(found.size(), 300U);
}

TEST_F(SaveFilesTest, OneNameInTwoEncodingsIsOneName) {
    campaign->paths.RailList = "K\u00F6ln.dat";
    campaign->paths.GridData = "K\xF6ln.dat";
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 2).objection, "is the file of RAILLIST too");
}

TEST_F(SaveFilesTest, ALinkToAnotherFileOfTheProjectIsNeverWritten) {
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_symlink(campaign->paths.Map, folder.Path() + "GRIDDATA.DAT");
    const std::string map = folder.Content(campaign->paths.Map);
    SaveBoxes grid{};
    grid[2] = true;
    EXPECT_EQ(FailureOfSave(grid).Found(), "\"GRIDDATA.DAT\", which is the file of MAP too");
    EXPECT_TRUE(folder.Content(campaign->paths.Map) == map);
}

TEST_F(SaveFilesTest, AFileThatMayBeDamagedIsInNeitherList) {
    std::filesystem::permissions(folder.Path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    // Written in place, whose flush fails, as does giving the old bytes back.
    const SystemCalls calls({{"openat", 1, EACCES}, {"fsync", 1, EIO}, {"fsync", 2, EIO}});
    SaveBoxes targets{};
    targets[0] = true;
    EXPECT_EQ(FailureOfSave(targets).AfterTheFailure(), FileAfterwards::MayBeDamaged);
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
    EXPECT_THAT(outcome.written, IsEmpty());
    EXPECT_THAT(outcome.notWritten, IsEmpty());
}

TEST_F(SaveFilesTest, ALinkOutOfTheFolderIsNamedAndOneWithinItIsNot) {
    TemporaryFolder elsewhere;
    const std::string outside = elsewhere.Make("real.dat", "x");
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_symlink(outside, folder.Path() + "GRIDDATA.DAT");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 2).linkedTo, std::filesystem::canonical(outside).string());
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_symlink(elsewhere.Path() + "not there", folder.Path() + "GRIDDATA.DAT");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 2).linkedTo, elsewhere.Path() + "not there");

    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_directory(folder.Path() + "within");
    std::filesystem::create_symlink("within/grid.dat", folder.Path() + "GRIDDATA.DAT");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 2).linkedTo, "");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 0).linkedTo, "");
}

TEST_F(SaveFilesTest, ABoxHasTheNameOfItsFileOrNoneWhenTheProjectHasNone) {
    campaign->paths.Railway = "K\xF6ln.dat";
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 6).name, "K\u00F6ln.dat");
    campaign->paths.Railway.clear();
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 6).name, "");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 10).name, "RAILWPT.DAT");
    EXPECT_EQ(FileOfSaveBox(campaign->paths, 3).name, "");
}

TEST(SaveBoxCaptions, AreTheNamesOfTheGamesFilesWithoutABox3) {
    Captions captions;
    for (std::size_t box = 0; box < saveBoxTotal; ++box)
        captions.push_back(SaveBoxCaption(box));
    EXPECT_THAT(captions,
                ElementsAre("TARGET.DAT", "TARNAMES.STR", "GRIDDATA.DAT", "", "FRNTLINE.DAT", "AIRFIELD.DAT",
                            "VTR_RRD.DAT", "ROADLIST.DAT", "ROADWPT.DAT", "RAILLIST.DAT", "RAILWPT.DAT"));
}

}  // namespace
}  // namespace vtr
