#include <gmock/gmock.h>

#include <filesystem>

#include "Errors.h"
#include "NewProject.h"
#include "Paths.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

TEST(NewProjectRows, StandInTheOrderOfTheDialog) {
    std::vector<std::size_t> indexes;
    for (const NewProjectRow &row : newProjectRows)
        indexes.push_back(row.index);
    EXPECT_THAT(indexes, ElementsAre(12, 11, 2, 0, 10, 1, 3, 4, 5, 6, 7, 8, 9));
}

TEST(NewProjectRows, HaveTheirCaptions) {
    std::vector<std::string_view> captions;
    for (std::size_t index = 0; index < newProjectRowTotal; ++index)
        captions.push_back(NewProjectRowOf(index).caption);
    EXPECT_THAT(captions,
                ElementsAre("TARGET.DAT:", "GRIDDATA.DAT:", "TILES DIR.:", "FRNTLINE.DAT:", "AIRFIELD.DAT:",
                            "VTR_RRD.DAT:", "ROADLIST.DAT", "ROADWPT.DAT:", "RAILLIST.DAT:", "RAILWPT.DAT:",
                            "TARNAMES.STR:", "VTR.TM:", "BMP MAP:"));
}

TEST(NewProjectRows, ACaptionsLastCharacterIsDroppedEvenWhereItIsNoColon) {
    EXPECT_EQ(FieldCaption(0), "TARGET.DAT");
    EXPECT_EQ(FieldCaption(6), "ROADLIST.DA");
    EXPECT_EQ(FieldCaption(12), "BMP MAP");
}

TEST(NewProjectRows, TheFileChooserIsTitledAndFilteredAfterTheRow) {
    EXPECT_EQ(BrowseTitle(0), "Browse for TARGET.DAT");
    EXPECT_EQ(BrowseTitle(6), "Browse for ROADLIST.DA");
    EXPECT_EQ(BrowseTitle(2), "DIRECTORY CONTAINING TILES");
    EXPECT_EQ(BrowseFilter(0), "TARGET.DAT|*.dat");
    EXPECT_EQ(BrowseFilter(6), "ROADLIST.DA|*.dat");
    EXPECT_EQ(BrowseFilter(10), "TARNAMES.STR|*.str");
    EXPECT_EQ(BrowseFilter(11), "VTR.TM|*.tm");
    EXPECT_EQ(BrowseFilter(12), "BMP MAP|*.bmp");
    EXPECT_EQ(BrowseFilter(2), "*.pcx|*.pcx");
}

TEST(NewProjectRows, OtherIndexesAreAnError) {
    EXPECT_THROW(NewProjectRowOf(13), Error);
}

TEST(NewProjectPick, KeepsTheWholePathAndTheBareName) {
    NewProject project;
    project.Pick(4, "C:\\game\\AIR.DAT");
    EXPECT_EQ(project.filenames[4], "C:\\game\\AIR.DAT");
    EXPECT_EQ(project.ChosenFileNames[4], "AIR.DAT");
    project.Pick(4, "");
    EXPECT_EQ(project.filenames[4], "C:\\game\\AIR.DAT");
    EXPECT_EQ(project.ChosenFileNames[4], "AIR.DAT");
}

TEST(NewProjectPick, ATilePictureGivesItsFolderWithoutTheSeparatorAndNoChosenName) {
    NewProject project;
    project.Pick(2, "C:\\game\\tiles\\BNGrass.pcx");
    EXPECT_EQ(project.filenames[2], "C:\\game\\tiles");
    EXPECT_EQ(project.ChosenFileNames[2], "");
    project.Pick(2, "/game/tiles/BNGrass.pcx");
    EXPECT_EQ(project.filenames[2], "/game/tiles");
}

TEST(NewProjectPick, AFolderFillsTheRowsWhoseFileItHoldsInAnyLetterCase) {
    const TemporaryFolder folder;
    for (const char *name :
         {"target.dat", "VTR.TM", "Roadlist.Dat", "worldmap.bmp", "bngrass.PCX", "other.dat"})
        folder.Make(name, "");
    std::filesystem::create_directory(folder.Path() + "AIRFIELD.DAT");
    NewProject project;
    project.filenames[1] = "/kept/GRIDDATA.DAT";
    std::string bare = folder.Path();
    bare.pop_back();
    for (const std::string &path : {folder.Path(), bare}) {
        project.PickFromFolder(path);
        EXPECT_EQ(project.filenames[0], folder.Path() + "target.dat");
        EXPECT_EQ(project.ChosenFileNames[0], "target.dat");
        EXPECT_EQ(project.filenames[11], folder.Path() + "VTR.TM");
        EXPECT_EQ(project.ChosenFileNames[6], "Roadlist.Dat");
        EXPECT_EQ(project.ChosenFileNames[12], "worldmap.bmp");
        EXPECT_EQ(project.filenames[2], bare);
        EXPECT_EQ(project.filenames[1], "/kept/GRIDDATA.DAT");
        EXPECT_EQ(project.filenames[3], "");
        EXPECT_EQ(project.filenames[4], "") << "a folder is no file";
    }
}

TEST(NewProjectFields, AreLookedAtInIndexOrderAndTheMapMayBeEmpty) {
    NewProject project;
    EXPECT_EQ(project.FirstEmptyRow(), 0U);
    project.filenames.fill("x");
    project.filenames[12] = "";
    EXPECT_EQ(project.FirstEmptyRow(), std::nullopt);
    project.filenames[11] = "";
    project.filenames[2] = "";
    EXPECT_EQ(project.FirstEmptyRow(), 2U);
}

TEST(NewProjectFields, OfBlanksOrInQuotationMarksAreRefused) {
    NewProject project;
    project.filenames.fill("/game/file of \"mine\"");
    project.filenames[12] = "";
    EXPECT_FALSE(project.FirstRefusal());
    for (const char *text : {" ", " \t ", "\"/game/x.dat\"", "'/game/x.dat'", "\"\""}) {
        for (const std::size_t index : {12U, 4U}) {
            project.filenames[index] = text;
            ASSERT_TRUE(project.FirstRefusal()) << text;
            EXPECT_EQ(project.FirstRefusal()->index, index);
        }
        project.filenames[4] = "x";
        project.filenames[12] = "";
    }
    project.filenames[4] = "\"";
    EXPECT_FALSE(project.FirstRefusal()) << "a name like any other";
    project.filenames[6] = "  ";
    EXPECT_EQ(project.FirstRefusal()->message,
              "The field ROADLIST.DAT holds nothing but blanks. Choose a file for it.");
    project.filenames[6] = "\"x\"";
    EXPECT_EQ(project.FirstRefusal()->message,
              "The path in the field ROADLIST.DAT stands in quotation marks. Take them away.");
}

TEST(NewProjectHints, NameWhatIsMissingOfOneNameOrTypedFromTopToBottom) {
    const TemporaryFolder folder;
    const std::string there = folder.Make("there.dat", "");
    NewProject project;
    EXPECT_EQ(TextOf(HintsOf(project)), "");
    project.Pick(0, there);
    project.filenames[2] = folder.Path();
    EXPECT_EQ(TextOf(HintsOf(project)), "");
    project.Pick(2, there);
    project.Pick(11, folder.Path() + "gone.tm");
    project.filenames[4] = folder.Path();
    project.Pick(9, folder.Path() + "THERE.DAT");
    const RowHints hints = HintsOf(project);
    EXPECT_THAT(hints.missing, ElementsAre(11, 4)) << "a folder is no file; the letters' case is nothing";
    EXPECT_THAT(hints.sameName, ElementsAre(ElementsAre(0, 9)));
    EXPECT_THAT(hints.typed, ElementsAre(4));
    project.filenames[2] = there;
    EXPECT_THAT(HintsOf(project).missing, ElementsAre(11, 2, 4)) << "a file is no folder";
}

TEST(NewProjectHints, KeepRowsOfOneNameApartFromThoseOfAnother) {
    const TemporaryFolder folder;
    const std::string one = folder.Make("one.dat", "");
    const std::string two = folder.Make("two.dat", "");
    NewProject project;
    for (const std::size_t index : {0U, 9U})
        project.Pick(index, one);
    for (const std::size_t index : {3U, 4U})
        project.Pick(index, two);
    EXPECT_EQ(TextOf(HintsOf(project)),
              "Of one file name, so that one overwrites the other: TARGET.DAT, RAILWPT.DAT; FRNTLINE.DAT, "
              "AIRFIELD.DAT.");
    project.Pick(5, two);
    EXPECT_EQ(TextOf(HintsOf(project)),
              "Of one file name, so that one overwrites the other: TARGET.DAT, RAILWPT.DAT; FRNTLINE.DAT, "
              "AIRFIELD.DAT and 1 more.");
}

TEST(NewProjectHints, TellOfAFileThatIsCopiedUnderTheNameBrowsedBefore) {
    const TemporaryFolder folder;
    NewProject project;
    project.Pick(0, folder.Make("browsed.dat", ""));
    project.filenames[0] = folder.Make("typed.dat", "");
    EXPECT_EQ(TextOf(HintsOf(project)),
              "Edited by hand, so copied under the name browsed before: TARGET.DAT.");
    std::filesystem::create_directory(folder.Path() + "other");
    project.filenames[0] = folder.Make("other/BROWSED.DAT", "");
    EXPECT_EQ(TextOf(HintsOf(project)), "");
}

TEST(NewProjectHints, NameThreeRowsALineAndCountTheRest) {
    RowHints hints;
    hints.missing = {11, 2, 0};
    hints.typed = {11, 0, 10, 6, 9};
    EXPECT_EQ(TextOf(hints),
              "Not found: VTR.TM, TILES DIR, TARGET.DAT.\n"
              "Typed by hand, so copied but not entered in the project file: VTR.TM, TARGET.DAT, "
              "TARNAMES.STR and 2 more.");
}

TEST(NewProjectPick, OfTheTilesTakesTheFolderBelowThatHoldsThem) {
    const TemporaryFolder folder;
    for (const char *below : {"b", "a", "c"})
        std::filesystem::create_directory(folder.Path() + below);
    folder.Make("b/bngrass.PCX", "");
    folder.Make("c/BNGrass.pcx", "");
    NewProject project;
    project.PickFromFolder(folder.Path());
    EXPECT_EQ(project.filenames[2], folder.Path() + "b");
    project.PickTilesFolder(folder.Path() + "c");
    EXPECT_EQ(project.filenames[2], folder.Path() + "c");
    project.PickTilesFolder(folder.Path() + "a");
    EXPECT_EQ(project.filenames[2], folder.Path() + "a");
    folder.Make("BNGrass.pcx", "");
    project.PickTilesFolder(folder.Path());
    EXPECT_EQ(project.filenames[2] + "/", folder.Path());
}

/// Game files, all picked by browsing; where they go; and the program's folder with its map.dat.
class CreatingAProject : public testing::Test {
  protected:
    CreatingAProject() {
        const char *names[] = {"TARGET.DAT",   "GRIDDATA.DAT", "",
                               "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT",
                               "ROADLIST.DAT", "ROADWPT.DAT",  "RAILLIST.DAT",
                               "RAILWPT.DAT",  "TARNAMES.STR", "VTR.TM",
                               "MYMAP.BMP"};
        for (std::size_t i = 0; i < 13; ++i)
            if (i != 2)
                project_.Pick(i, game_.Make(names[i], std::string("content of ") + names[i]));
        project_.filenames[2] = "/nowhere";
        project_.name = "North front";
        program_.Make("map.dat", std::string(1078, 'm'));
    }

    void Create() { CreateProject(project_, Path(), program_.Path()); }
    std::string Path() const { return target_.Path() + "north.prj"; }

    Error ErrorOfCreate() {
        try {
            Create();
        } catch (const Error &error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {ErrorKind::Overflow, {}, "", ""};
    }

    TemporaryFolder game_;
    TemporaryFolder target_;
    TemporaryFolder program_;
    NewProject project_;
};

TEST_F(CreatingAProject, WritesThirteenLinesInTheirOrder) {
    Create();
    EXPECT_EQ(target_.Content("north.prj"),
              "Name=North front\r\n"
              "Map=MYMAP.BMP\r\n"
              "MapTM=VTR.TM\r\n"
              "TARGETS=TARGET.DAT\r\n"
              "TARNAMES=TARNAMES.STR\r\n"
              "GridData=GRIDDATA.DAT\r\n"
              "Frontline=FRNTLINE.DAT\r\n"
              "Airfield=AIRFIELD.DAT\r\n"
              "Railway=VTR_RRD.DAT\r\n"
              "ROADWPT=ROADWPT.DAT\r\n"
              "RoadList=ROADLIST.DAT\r\n"
              "RAILWPT=RAILWPT.DAT\r\n"
              "RailList=RAILLIST.DAT\r\n");
}

TEST_F(CreatingAProject, CopiesTheFilesOfAllRowsButTheTiles) {
    Create();
    EXPECT_THAT(target_.Names(),
                UnorderedElementsAre("north.prj", "TARGET.DAT", "GRIDDATA.DAT", "FRNTLINE.DAT",
                                     "AIRFIELD.DAT", "VTR_RRD.DAT", "ROADLIST.DAT", "ROADWPT.DAT",
                                     "RAILLIST.DAT", "RAILWPT.DAT", "TARNAMES.STR", "VTR.TM", "MYMAP.BMP"));
    EXPECT_EQ(target_.Content("ROADWPT.DAT"), "content of ROADWPT.DAT");
    EXPECT_EQ(target_.Content("MYMAP.BMP"), "content of MYMAP.BMP");
}

TEST_F(CreatingAProject, OverwritesFilesThatAreThere) {
    target_.Make("TARGET.DAT", "an older and longer content of TARGET.DAT");
    target_.Make("north.prj", "Name=older");
    Create();
    EXPECT_EQ(target_.Content("TARGET.DAT"), "content of TARGET.DAT");
    EXPECT_EQ(target_.Content("north.prj").substr(0, 18), "Name=North front\r\n");
}

TEST_F(CreatingAProject, AnEmptyNameIsWrittenAsItIs) {
    project_.name.clear();
    Create();
    EXPECT_EQ(target_.Content("north.prj").substr(0, 7), "Name=\r\n");
}

TEST_F(CreatingAProject, WithoutAMapOneIsGeneratedAndNamed) {
    project_.filenames[12].clear();
    Create();
    EXPECT_EQ(project_.ChosenFileNames[12], "worldmap.bmp");
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nMap=worldmap.bmp\r\n"));
    EXPECT_TRUE(target_.Content("worldmap.bmp") ==
                std::string(1078, 'm') + "content of VTR.TM" + std::string(204800 - 17, '\0'));
    EXPECT_THAT(target_.Names(), Not(Contains("MYMAP.BMP")));
}

TEST_F(CreatingAProject, WithAMapNamedTheTemplateIsNotTouched) {
    std::filesystem::remove(program_.Path() + "map.dat");
    Create();
    EXPECT_THAT(target_.Names(), Not(Contains("worldmap.bmp")));
    EXPECT_THAT(program_.Names(), IsEmpty());
}

TEST_F(CreatingAProject, AMapTypedByHandIsCopiedUnderItsOwnNameAndLeavesTheKeyEmpty) {
    project_.ChosenFileNames[12].clear();
    Create();
    EXPECT_EQ(target_.Content("MYMAP.BMP"), "content of MYMAP.BMP");
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nMap=\r\nMapTM="));
}

TEST_F(CreatingAProject, AFileTypedByHandIsCopiedUnderItsOwnNameAndLeavesTheKeyEmpty) {
    project_.filenames[5] = game_.Make("typed.dat", "typed");
    project_.ChosenFileNames[5].clear();
    Create();
    EXPECT_EQ(target_.Content("typed.dat"), "typed");
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nRailway=\r\n"));
}

TEST_F(CreatingAProject, AFileTypedOverABrowsedOneGetsTheNameOfTheBrowsedOne) {
    project_.filenames[5] = game_.Make("typed.dat", "typed");
    Create();
    EXPECT_EQ(target_.Content("VTR_RRD.DAT"), "typed");
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nRailway=VTR_RRD.DAT\r\n"));
}

TEST_F(CreatingAProject, ATerrainMapTypedByHandStillGivesItsPicture) {
    project_.filenames[11] = game_.Make("typed.tm", "terrain");
    project_.ChosenFileNames[11].clear();
    project_.filenames[12].clear();
    Create();
    EXPECT_EQ(target_.Content("worldmap.bmp").substr(1078, 7), "terrain");
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nMapTM=\r\n"));
}

TEST_F(CreatingAProject, InTheGameFilesOwnFolderLeavesThemAsTheyAre) {
    const std::string target = game_.Path() + "TARGET.DAT";
    const std::filesystem::file_time_type old{std::chrono::seconds(1000000000)};
    std::filesystem::last_write_time(target, old);
    CreateProject(project_, game_.Path() + "north.prj", program_.Path());
    EXPECT_EQ(game_.Content("TARGET.DAT"), "content of TARGET.DAT");
    EXPECT_EQ(std::filesystem::last_write_time(target), old);
    EXPECT_THAT(game_.Names(), Contains("north.prj"));
}

TEST_F(CreatingAProject, AFileOfAnotherNameForTheSameOneIsLeftAsItIs) {
    const std::filesystem::file_time_type old{std::chrono::seconds(1000000000)};
    const std::string target = game_.Path() + "TARGET.DAT";
    std::filesystem::create_symlink(target, target_.Path() + "TARGET.DAT");
    std::filesystem::create_hard_link(game_.Path() + "GRIDDATA.DAT", target_.Path() + "GRIDDATA.DAT");
    for (const char *name : {"TARGET.DAT", "GRIDDATA.DAT"})
        std::filesystem::last_write_time(game_.Path() + name, old);
    Create();
    EXPECT_TRUE(std::filesystem::is_symlink(target_.Path() + "TARGET.DAT"));
    for (const char *name : {"TARGET.DAT", "GRIDDATA.DAT"}) {
        EXPECT_EQ(game_.Content(name), std::string("content of ") + name);
        EXPECT_EQ(std::filesystem::last_write_time(game_.Path() + name), old) << name;
    }
}

TEST_F(CreatingAProject, AMissingFileIsNamedAndNoProjectFileIsLeft) {
    project_.filenames[4] = game_.Path() + "GONE.DAT";
    const Error error = ErrorOfCreate();
    EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
    EXPECT_EQ(FileNameOf(error.File()), "GONE.DAT");
    // What comes before it is there, nothing of it or behind it.
    EXPECT_THAT(target_.Names(), UnorderedElementsAre("TARGET.DAT", "GRIDDATA.DAT", "FRNTLINE.DAT"));
}

TEST_F(CreatingAProject, AFileThatCannotBeWrittenIsNamedAndTheOlderProjectFileIsKept) {
    target_.Make("north.prj", "Name=older");
    std::filesystem::create_directory(target_.Path() + "MYMAP.BMP");
    const Error error = ErrorOfCreate();
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(FileNameOf(error.File()), "MYMAP.BMP");
    EXPECT_EQ(target_.Content("north.prj"), "Name=older");
}

TEST_F(CreatingAProject, AProjectFileThatCannotBeWrittenIsAnErrorBeforeAnythingIsCopied) {
    std::filesystem::create_directory(target_.Path() + "north.prj");
    project_.filenames[12].clear();
    EXPECT_EQ(FileNameOf(ErrorOfCreate().File()), "north.prj");
    EXPECT_THAT(target_.Names(), UnorderedElementsAre("north.prj"));
}

TEST_F(CreatingAProject, ReadsNoFileThatIsTooLargeForItsKind) {
    const auto expectUnread = [this](const std::string &file) {
        std::filesystem::resize_file(file, std::uintmax_t{4} << 30);
        const SystemCalls calls;
        const Error error = ErrorOfCreate();
        EXPECT_EQ(error.Kind(), ErrorKind::FileTooLarge);
        EXPECT_EQ(error.File(), file);
        EXPECT_LT(calls.BytesRead(), 1000U);
    };
    expectUnread(project_.filenames[12]);
    expectUnread(project_.filenames[4]);
    target_.Make("north.prj", "");
    expectUnread(Path());
}

TEST_F(CreatingAProject, AFolderIsNoFileToCopyEvenWhenItIsTheProjectsOwn) {
    for (const std::string &folder : {target_.Path(), game_.Path()}) {
        project_.filenames[4] = folder;
        project_.ChosenFileNames[4].clear();
        const Error error = ErrorOfCreate();
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
        EXPECT_EQ(error.File(), folder);
        EXPECT_THAT(target_.Names(), Not(Contains("north.prj")));
    }
}

TEST_F(CreatingAProject, AFailedCopyLeavesALinkToNowhereAsItWas) {
    const TemporaryFolder elsewhere;
    std::filesystem::create_symlink(elsewhere.Path() + "gone.prj", Path());
    project_.filenames[0] = game_.Path() + "GONE.DAT";
    EXPECT_EQ(ErrorOfCreate().Kind(), ErrorKind::FileMissing);
    EXPECT_THAT(elsewhere.Names(), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_symlink(Path()));
    project_.filenames[0] = game_.Path() + "TARGET.DAT";
    Create();
    EXPECT_EQ(elsewhere.Content("gone.prj").substr(0, 18), "Name=North front\r\n");
}

TEST_F(CreatingAProject, AMissingFileIsAnErrorEvenWhenTheMapIsToBeGenerated) {
    project_.filenames[12].clear();
    project_.filenames[9] = game_.Path() + "GONE.DAT";
    EXPECT_EQ(ErrorOfCreate().Kind(), ErrorKind::FileMissing);
    EXPECT_THAT(target_.Names(), Not(Contains("worldmap.bmp")));
}

TEST_F(CreatingAProject, AFailedGenerationIsPassedOverAndTheProjectFileWritten) {
    project_.filenames[12].clear();
    target_.Make("worldmap.bmp", "of another terrain");
    std::filesystem::remove(program_.Path() + "map.dat");
    Create();
    EXPECT_THAT(target_.Names(), Not(Contains("worldmap.bmp")));
    EXPECT_THAT(target_.Content("north.prj"), testing::HasSubstr("\r\nMap=worldmap.bmp\r\n"));
}

TEST_F(CreatingAProject, AProjectFileThatCannotBeWrittenBehindAGenerationIsPassedOverToo) {
    project_.filenames[12].clear();
    // The old map's name leads to a folder and the project file's into it: both go when the map is made.
    std::filesystem::create_directory(target_.Path() + "deep");
    std::filesystem::create_symlink("deep", target_.Path() + "worldmap.bmp");
    std::filesystem::create_symlink("worldmap.bmp/north.prj", target_.Path() + "north.prj");
    EXPECT_NO_THROW(Create());
    EXPECT_EQ(target_.Content("worldmap.bmp").size(), 205878U);
    EXPECT_FALSE(std::filesystem::exists(target_.Path() + "north.prj"));
}

}  // namespace
}  // namespace vtr
