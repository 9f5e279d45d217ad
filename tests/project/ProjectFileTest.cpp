#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ErrorThrownBy.h"
#include "ProjectFile.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

class ProjectFileTest : public ::testing::Test {
  protected:
    TemporaryFolder folder;
    ProjectPaths paths;
    int lines = 0;

    void Read(const std::string &text) {
        ReadProjectFile(folder.Make("p.prj", text), paths, [this] { ++lines; });
    }
};

TEST_F(ProjectFileTest, EveryKeyFillsItsField) {
    Read(
        "NAME=1\r\nMAP=2\r\nMAPTM=3\r\nTARGETS=4\r\nTARNAMES=5\r\nAIRFIELD=6\r\nRAILWAY=7\r\nRAILWPT=8\r\n"
        "RAILLIST=9\r\nROADWPT=10\r\nROADLIST=11\r\nGRIDDATA=12\r\nFRONTLINE=13\r\nTILESDIR=14\r\n");
    EXPECT_EQ(lines, 14);
    EXPECT_EQ(paths.Name, "1");
    EXPECT_EQ(paths.Map, "2");
    EXPECT_EQ(paths.MapTM, "3");
    EXPECT_EQ(paths.Targets, "4");
    EXPECT_EQ(paths.TarNames, "5");
    EXPECT_EQ(paths.Airfield, "6");
    EXPECT_EQ(paths.Railway, "7");
    EXPECT_EQ(paths.RailWpt, "8");
    EXPECT_EQ(paths.RailList, "9");
    EXPECT_EQ(paths.RoadWpt, "10");
    EXPECT_EQ(paths.RoadList, "11");
    EXPECT_EQ(paths.GridData, "12");
    EXPECT_EQ(paths.Frontline, "13");
    EXPECT_EQ(paths.TilesDir, "14");
}

TEST_F(ProjectFileTest, AKeyInAnyLetterCaseIsTheKey) {
    Read("name=lower\r\n");
    EXPECT_EQ(paths.Name, "lower");
    Read("Name=mixed\r\n");
    EXPECT_EQ(paths.Name, "mixed");
}

TEST_F(ProjectFileTest, AFileNamedInAnotherLetterCaseIsReadAndNotMadeAnew) {
    folder.Make("north.prj", "NAME=North\r\n");
    ReadProjectFile(folder.Path() + "NORTH.PRJ", paths, [] {});
    EXPECT_EQ(paths.Name, "North");
    EXPECT_THAT(folder.Names(), ::testing::ElementsAre("north.prj"));
    EXPECT_EQ(folder.Content("north.prj"), "NAME=North\r\n");
}

TEST_F(ProjectFileTest, ABlankInFrontOfAKeyMakesItNoKey) {
    Read(" NAME=a\r\nMAP =b\r\n");
    EXPECT_EQ(paths.Name, "");
    EXPECT_EQ(paths.Map, "");
    EXPECT_EQ(lines, 2) << "an unknown key is a line read all the same";
}

TEST_F(ProjectFileTest, APathThatTheSystemRefusesIsAnErrorOfThatFile) {
    const std::string path = folder.Path() + std::string(300, 'x') + ".prj";
    const Error error = ErrorThrownBy([&] { ReadProjectFile(path, paths, [] {}); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(error.File(), path);
}

TEST_F(ProjectFileTest, AFolderThatIsGoneIsSaidToBe) {
    const std::string path = folder.Path() + "gone/p.prj";
    const Error error = ErrorThrownBy([&] { ReadProjectFile(path, paths, [] {}); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Expected(), "a project file");
    EXPECT_EQ(error.Found(), "no such folder: it has been moved, renamed or removed");
}

TEST_F(ProjectFileTest, AValueKeepsEverythingBehindTheFirstEqualsSign) {
    Read("Name=a=b\r\nMap= m.bmp \r\n");
    EXPECT_EQ(paths.Name, "a=b");
    EXPECT_EQ(paths.Map, " m.bmp ");
}

TEST_F(ProjectFileTest, OfARepeatedKeyTheLaterLineWins) {
    Read("Name=first\r\nNAME=second\r\n");
    EXPECT_EQ(paths.Name, "second");
}

TEST_F(ProjectFileTest, LinesMayEndInLfAlone) {
    Read("Name=a\nMap=b");
    EXPECT_EQ(paths.Name, "a");
    EXPECT_EQ(paths.Map, "b");
    EXPECT_EQ(lines, 2);
}

TEST_F(ProjectFileTest, ALineWithoutEqualsSignIsAnErrorThatNamesFileLineExpectedAndFound) {
    for (const char *text : {"Name=a\r\nrubbish\r\nMap=b\r\n", "Name=a\r\n\r\nMap=b\r\n"}) {
        try {
            Read(text);
            FAIL();
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
            EXPECT_EQ(error.File(), folder.Path() + "p.prj");
            EXPECT_EQ(error.Line(), 2);
            EXPECT_EQ(error.Expected(), "a line KEY=value");
            EXPECT_THAT(error.Found(), ::testing::AnyOf("\"rubbish\"", "\"\""));
        }
    }
}

TEST_F(ProjectFileTest, AFieldWithoutALineKeepsItsValue) {
    paths.Targets = "OLD.DAT";
    Read("Name=a\r\n");
    EXPECT_EQ(paths.Targets, "OLD.DAT");
}

std::string TilesDirOf(std::string tilesDir, const std::string &project) {
    ProjectPaths paths;
    paths.TilesDir = std::move(tilesDir);
    DeriveFolders(project, paths);
    return paths.TilesDir;
}

TEST(DeriveFolders, SplitThePathOfTheProjectFileAtItsName) {
    ProjectPaths paths;
    DeriveFolders("C:\\games\\north.prj\\north.prj", paths);
    EXPECT_EQ(paths.ProjectDir, "C:\\games\\north.prj\\");
    EXPECT_EQ(paths.ProjectFile, "north.prj");
    DeriveFolders("/home/me/n.prj", paths);
    EXPECT_EQ(paths.ProjectDir, "/home/me/");
}

TEST(DeriveFolders, TheTilesFolderIsAbsoluteWithADriveLetterOnly) {
    EXPECT_EQ(TilesDirOf("C:\\tiles\\", "D:\\p\\n.prj"), "C:\\tiles");
    EXPECT_EQ(TilesDirOf("tiles", "D:\\p\\n.prj"), "D:\\p\\tiles");
    EXPECT_EQ(TilesDirOf("\\\\server\\tiles", "D:\\p\\n.prj"), "D:\\p\\\\\\server\\tiles");
    EXPECT_EQ(TilesDirOf("", "D:\\p\\n.prj"), "D:\\p");
    EXPECT_EQ(TilesDirOf("C:/tiles", "D:\\p\\n.prj"), "D:\\p\\C:/tiles");
    EXPECT_EQ(TilesDirOf("K\xF6ln", "D:\\p\\n.prj"), "D:\\p\\K\u00F6ln");
    EXPECT_EQ(TilesDirOf("t\\\\", "D:\\p\\n.prj"), "D:\\p\\t\\") << "one separator is dropped, no more";
}

#ifndef _WIN32
TEST(DeriveFolders, WithoutDriveLettersALeadingSlashIsAbsoluteToo) {
    EXPECT_EQ(TilesDirOf("/srv/tiles/", "/home/me/n.prj"), "/srv/tiles");
    EXPECT_EQ(TilesDirOf("", "/home/me/n.prj"), "/home/me");
}
#endif

TEST(ProjectPaths, AValueIsJoinedToTheProjectFolderAndAnEmptyOneMeansNotConfigured) {
    ProjectPaths paths;
    paths.ProjectDir = "C:\\p\\";
    EXPECT_EQ(paths.PathOf("T.DAT"), "C:\\p\\T.DAT");
    EXPECT_EQ(paths.PathOf(""), "");
    EXPECT_EQ(paths.PathOf("K\xF6ln.dat"), "C:\\p\\K\xC3\xB6ln.dat");
}

TEST_F(ProjectFileTest, AnEmptyLineIsNamedAsOne) {
    const Error error = ErrorThrownBy([this] { Read("NAME=x\r\n\r\n"); });
    EXPECT_EQ(error.Line(), 2);
    EXPECT_EQ(error.PlaceText(), "line 2, an empty line, which you can delete");
}

TEST_F(ProjectFileTest, AVeryLongLineIsToldByItsBeginning) {
    const Error error = ErrorThrownBy([this] { Read(std::string(500000, 'x')); });
    EXPECT_EQ(error.Found(), '"' + std::string(200, 'x') + "...\"");
}

TEST_F(ProjectFileTest, TextOf16BitsIsToldAsSuch) {
    for (const std::string &text : {std::string("\xFF\xFEN\0A\0", 6), std::string("\xFE\xFF\0N\0A", 6),
                                    std::string("N\0A\0", 4), std::string("\0N\0A", 4)}) {
        const Error error = ErrorThrownBy([&] { Read(text); });
        EXPECT_EQ(error.Kind(), ErrorKind::TypeMismatch);
        EXPECT_EQ(error.Found(),
                  "text of two bytes a letter (\"Unicode\"): save the file as plain text (\"ANSI\")");
    }
}

TEST_F(ProjectFileTest, ANewFileHasThirteenLinesInSingleByteCharactersUnlessOneHasNone) {
    paths.Name = "K\u00F6ln";
    paths.Map = "m\u00E4p.bmp";
    const auto written = [this] {
        const Bytes bytes = EncodeProjectFile(paths);
        return std::string(bytes.begin(), bytes.end());
    };
    const std::string rest =
        "MapTM=\r\nTARGETS=\r\nTARNAMES=\r\nGridData=\r\nFrontline=\r\nAirfield=\r\nRailway=\r\n"
        "ROADWPT=\r\nRoadList=\r\nRAILWPT=\r\nRailList=\r\n";
    EXPECT_EQ(written(), "Name=K\xF6ln\r\nMap=m\xE4p.bmp\r\n" + rest);
    paths.Name = "K\u00F6ln \u041C";
    EXPECT_EQ(written(), "Name=K\u00F6ln \u041C\r\nMap=m\u00E4p.bmp\r\n" + rest);
}

TEST_F(ProjectFileTest, AZeroByteAloneDoesNotMakeItTextOf16Bits) {
    Read(std::string("N\0ME=x\r\nMap=m.bmp\r\n", 18));
    EXPECT_EQ(paths.Map, "m.bmp");
}

}  // namespace
}  // namespace vtr
