#include <gtest/gtest.h>

#include "ErrorThrownBy.h"
#include "ProjectFile.h"
#include "TemporaryFolder.h"
#include "TilesFolder.h"

namespace vtr {
namespace {

TEST(TilesDirValue, IsRelativeInTheProjectsFolderAndAbsoluteElsewhere) {
    EXPECT_EQ(TilesDirValue("/game/tiles", "/project/"), "/game/tiles");
    EXPECT_EQ(TilesDirValue("/project/art/tiles", "/project/"), "art/tiles");
    EXPECT_EQ(TilesDirValue("/project", "/project/"), "");
    EXPECT_EQ(TilesDirValue("/projects", "/project/"), "/projects");
    EXPECT_EQ(TilesDirValue("C:\\maps\\north\\tiles", "C:\\maps\\north\\"), "tiles");
    EXPECT_EQ(TilesDirValue("C:\\maps\\north", "C:\\maps\\north\\"), "");
    EXPECT_EQ(TilesDirValue("C:\\tiles", ""), "C:\\tiles");
}

class TilesFolder : public ::testing::Test {
  protected:
    /// Sets the folder in a project file of that text, which must be loaded with it from then on.
    std::string TextAfter(const std::string &text, const std::string &tiles) {
        const std::string file = folder.Make("a.prj", text);
        paths.ProjectDir = folder.Path();
        paths.ProjectFile = "a.prj";
        SetTilesFolder(paths, tiles);
        EXPECT_EQ(paths.TilesDir, tiles);
        ProjectPaths loaded;
        ReadProjectFile(file, loaded, [] {});
        DeriveFolders(file, loaded);
        EXPECT_EQ(loaded.TilesDir, tiles);
        return folder.Content("a.prj");
    }

    TemporaryFolder folder;
    ProjectPaths paths;
};

TEST_F(TilesFolder, IsWrittenIntoANewLastLineOfTheProjectFile) {
    EXPECT_EQ(TextAfter("Name=a\r\nMap=b\r\n", "/tiles"), "Name=a\r\nMap=b\r\nTILESDIR=/tiles\r\n");
    EXPECT_EQ(TextAfter("Name=a\r\nMap=b", "/tiles"), "Name=a\r\nMap=b\r\nTILESDIR=/tiles\r\n");
    EXPECT_EQ(TextAfter("", "/tiles"), "TILESDIR=/tiles\r\n");
    EXPECT_EQ(TextAfter("", folder.Path() + "tiles"), "TILESDIR=tiles\r\n");
}

TEST_F(TilesFolder, ReplacesTheLineThatCountsAndKeepsAllOtherBytes) {
    EXPECT_EQ(TextAfter("Name=N\xF6rd\nTilesDir=one\r\nODD =  \r\ntilesDir=two=2\nMAP=\x01=\r\n", "/tiles"),
              "Name=N\xF6rd\nTilesDir=one\r\nODD =  \r\ntilesDir=/tiles\nMAP=\x01=\r\n");
    EXPECT_EQ(TextAfter("Name=a\r\nTILESDIR=", "/tiles"), "Name=a\r\nTILESDIR=/tiles");
    EXPECT_EQ(TextAfter(" TILESDIR=x\r\n", "/tiles"), " TILESDIR=x\r\nTILESDIR=/tiles\r\n");
}

TEST_F(TilesFolder, IsSingleByteTextUnlessThatWouldBeReadAsAnother) {
    EXPECT_EQ(TextAfter("", "/K\xC3\xBCste"), "TILESDIR=/K\xFCste\r\n");
    EXPECT_EQ(TextAfter("", "/\xD0\xA4"), "TILESDIR=/\xD0\xA4\r\n");
    EXPECT_EQ(TextAfter("", "/\xC3\x83\xC2\xA9"), "TILESDIR=/\xC3\x83\xC2\xA9\r\n");
}

TEST_F(TilesFolder, IsUtf8WhereTheRestOfTheProjectFileIs) {
    const std::string utf8 = "Name=N\xC3\xB6rd\r\nTILESDIR=/K\xC3\xBCste\r\n";
    EXPECT_EQ(TextAfter("Name=N\xC3\xB6rd\r\n", "/K\xC3\xBCste"), utf8);
    EXPECT_EQ(TextAfter("Name=N\xC3\xB6rd\r\nTILESDIR=/S\xFC"
                        "d\r\n",
                        "/K\xC3\xBCste"),
              utf8);
    EXPECT_EQ(TextAfter("Name=N\xF6rd\r\n", "/K\xC3\xBCste"), "Name=N\xF6rd\r\nTILESDIR=/K\xFCste\r\n");
}

TEST_F(TilesFolder, CountsForTheSessionWhenTheProjectFileCannotBeWritten) {
    paths.ProjectDir = folder.Path();
    paths.ProjectFile = "gone.prj";
    EXPECT_EQ(KindThrownBy([this] { SetTilesFolder(paths, "/tiles"); }), ErrorKind::FileMissing);
    EXPECT_EQ(paths.TilesDir, "/tiles");
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(TilesFolder, ThatALoadWouldPutBehindTheProjectsFolderIsNotWritten) {
    folder.Make("a.prj", "Name=a\r\n");
    paths.ProjectDir = folder.Path();
    paths.ProjectFile = "a.prj";
    EXPECT_THROW(SetTilesFolder(paths, "\\\\server\\tiles"), Error);
    EXPECT_EQ(paths.TilesDir, "\\\\server\\tiles");
    EXPECT_EQ(folder.Content("a.prj"), "Name=a\r\n");
}

}  // namespace
}  // namespace vtr
