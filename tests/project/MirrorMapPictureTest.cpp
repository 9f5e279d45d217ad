#include <gtest/gtest.h>

#include "ErrorThrownBy.h"
#include "MapGeneration.h"
#include "MirrorMapPicture.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

/// A project whose map is generated from a terrain of rows that differ.
class MapPicture : public ::testing::Test {
  protected:
    MapPicture() {
        std::string head(1078, '\0');
        head.replace(0, 2, "BM");
        head[10] = '\x36';  // 1078 bytes to the pixels
        head[11] = '\x04';
        head[14] = 40;
        head[18] = '\x80';  // 640 columns
        head[19] = '\x02';
        head[22] = '\x40';  // 320 rows
        head[23] = '\x01';
        head[28] = 8;
        std::string terrain;
        for (int row = 0; row < 320; ++row)
            terrain += std::string(640, static_cast<char>(row % 251));
        folder.Make("map.dat", head);
        folder.Make("VTR.TM", terrain);
        GenerateMap(folder.Path() + "map.dat", folder.Path(), "VTR.TM");
        for (int row = 319; row >= 0; --row)
            head += std::string(640, static_cast<char>(row % 251));
        upright = head;
        paths.ProjectDir = folder.Path();
        paths.ProjectFile = "a.prj";
        paths.Map = "WorldMap.bmp";
    }

    TemporaryFolder folder;
    ProjectPaths paths;
    std::string upright;
};

TEST_F(MapPicture, OfATerrainIsUprightWhenItHasBeenMirroredAndAsBeforeWhenTwice) {
    const std::string before = folder.Content("worldmap.bmp");
    const auto names = folder.Names();
    MirrorMapPicture(paths);
    EXPECT_TRUE(folder.Content("worldmap.bmp") == upright);
    MirrorMapPicture(paths);
    EXPECT_TRUE(folder.Content("worldmap.bmp") == before);
    EXPECT_EQ(folder.Names(), names);
}

TEST_F(MapPicture, ThatTheProjectDoesNotNameIsAnErrorOfTheProjectFile) {
    for (const char *none : {"", "NONE"}) {
        paths.Map = none;
        EXPECT_EQ(ErrorThrownBy([this] { MirrorMapPicture(paths); }).File(), folder.Path() + "a.prj");
    }
}

TEST_F(MapPicture, LargerThanAnyThatIsShownIsNotRead) {
    std::filesystem::resize_file(folder.Path() + "worldmap.bmp", 1'100'000'000);
    const SystemCalls calls;
    EXPECT_EQ(KindThrownBy([this] { MirrorMapPicture(paths); }), ErrorKind::FileTooLarge);
    EXPECT_EQ(calls.BytesRead(), 0U);
}

TEST_F(MapPicture, WhoseWriteFailsIsLeftAsItIs) {
    const std::string before = folder.Content("worldmap.bmp");
    const auto names = folder.Names();
    for (const Fault &fault : {Fault{.call = "write", .error = ENOSPC}, Fault{.call = "fsync", .error = EIO},
                               Fault{.call = "renameat", .error = EIO}}) {
        const SystemCalls calls({fault});
        const Error error = ErrorThrownBy([this] { MirrorMapPicture(paths); });
        EXPECT_EQ(error.File(), folder.Path() + "WorldMap.bmp") << fault.call;
        EXPECT_EQ(error.AfterTheFailure(), FileAfterwards::AsBefore) << fault.call;
        EXPECT_TRUE(folder.Content("worldmap.bmp") == before) << fault.call;
        EXPECT_EQ(folder.Names(), names) << fault.call;
    }
}

TEST_F(MapPicture, OutsideTheProjectsFolderIsLeftAsItIs) {
    const TemporaryFolder project;
    const std::string before = folder.Content("worldmap.bmp");
    paths.ProjectDir = project.Path();
    std::filesystem::create_symlink(folder.Path() + "worldmap.bmp", project.Path() + "linked.bmp");
    const std::string above =
        "../" + std::filesystem::path(folder.Path()).parent_path().filename().string() + "/worldmap.bmp";
    for (const std::string &map : {above, std::string("linked.bmp")}) {
        paths.Map = map;
        const Error error = ErrorThrownBy([this] { MirrorMapPicture(paths); });
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess) << map;
        EXPECT_TRUE(folder.Content("worldmap.bmp") == before) << map;
    }
    // In a folder of the project, and by a link within it, it is the project's own.
    std::filesystem::create_directory(project.Path() + "maps");
    std::filesystem::copy_file(folder.Path() + "worldmap.bmp", project.Path() + "maps/own.bmp");
    std::filesystem::create_symlink("maps/own.bmp", project.Path() + "own.bmp");
    paths.Map = "maps\\own.bmp";
    MirrorMapPicture(paths);
    EXPECT_TRUE(project.Content("maps/own.bmp") == upright);
    paths.Map = "own.bmp";
    MirrorMapPicture(paths);
    EXPECT_TRUE(project.Content("maps/own.bmp") == before);
}

}  // namespace
}  // namespace vtr
