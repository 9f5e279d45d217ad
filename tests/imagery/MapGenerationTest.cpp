#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>

#include "Errors.h"
#include "MapGeneration.h"
#include "Paths.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string Template() {
    std::string bytes(1078, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i % 253);
    return bytes;
}

std::string Terrain() {
    std::string bytes(204800, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i % 255);
    return bytes;
}

TEST(MapGeneration, TheTerrainBytesStandBehindTheTemplateInFileOrder) {
    const TemporaryFolder program;
    const TemporaryFolder project;
    project.Make("VTR.TM", Terrain());
    GenerateMap(program.Make("map.dat", Template()), project.Path(), "VTR.TM");
    const std::string map = project.Content("worldmap.bmp");
    EXPECT_EQ(map.size(), 205878U);
    EXPECT_TRUE(map.substr(0, 1078) == Template());
    EXPECT_TRUE(map.substr(1078) == Terrain());
    EXPECT_THAT(project.Names(), UnorderedElementsAre("VTR.TM", "worldmap.bmp"));
}

TEST(MapGeneration, OnlyTheFirstBytesOfALongerTemplateAndTerrainAreTaken) {
    const TemporaryFolder folder;
    folder.Make("VTR.TM", Terrain() + "more");
    GenerateMap(folder.Make("map.dat", Template() + "more"), folder.Path(), "VTR.TM");
    EXPECT_TRUE(folder.Content("worldmap.bmp") == Template() + Terrain());
}

TEST(MapGeneration, AShortTerrainStillGivesAWholePicture) {
    const TemporaryFolder folder;
    folder.Make("VTR.TM", "abc");
    GenerateMap(folder.Make("map.dat", Template()), folder.Path(), "VTR.TM");
    EXPECT_TRUE(folder.Content("worldmap.bmp") == Template() + "abc" + std::string(204797, '\0'));
}

TEST(MapGeneration, AnEarlierMapOfAnyLengthIsReplaced) {
    const TemporaryFolder folder;
    folder.Make("VTR.TM", Terrain());
    folder.Make("worldmap.bmp", std::string(400000, 'x'));
    GenerateMap(folder.Make("map.dat", Template()), folder.Path(), "VTR.TM");
    EXPECT_TRUE(folder.Content("worldmap.bmp") == Template() + Terrain());
}

TEST(MapGeneration, WithoutATemplateOrATerrainNoMapIsLeftAndTheMissingFileIsNamed) {
    const TemporaryFolder folder;
    folder.Make("worldmap.bmp", "of another terrain");
    const auto missing = [&folder] {
        try {
            GenerateMap(folder.Path() + "map.dat", folder.Path(), "VTR.TM");
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
            return std::string(FileNameOf(error.File()));
        }
        return std::string("nothing");
    };
    EXPECT_EQ(missing(), "map.dat");
    EXPECT_THAT(folder.Names(), IsEmpty());
    folder.Make("map.dat", Template());
    folder.Make("WorldMap.BMP", "of another terrain");
    EXPECT_EQ(missing(), "VTR.TM");
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("map.dat"));
}

TEST(MapGeneration, ASymbolicLinkOfTheMapsNameIsDeletedAndNotFollowed) {
    const TemporaryFolder elsewhere;
    const std::string other = elsewhere.Make("other.bmp", "kept");
    for (const std::string &target : {other, elsewhere.Path() + "gone.bmp"}) {
        const TemporaryFolder folder;
        folder.Make("VTR.TM", Terrain());
        std::filesystem::create_symlink(target, folder.Path() + "worldmap.bmp");
        GenerateMap(folder.Make("map.dat", Template()), folder.Path(), "VTR.TM");
        EXPECT_TRUE(std::filesystem::is_regular_file(
            std::filesystem::symlink_status(folder.Path() + "worldmap.bmp")));
        EXPECT_TRUE(folder.Content("worldmap.bmp") == Template() + Terrain());
    }
    EXPECT_EQ(elsewhere.Content("other.bmp"), "kept");
    EXPECT_THAT(elsewhere.Names(), UnorderedElementsAre("other.bmp"));
}

TEST(MapGeneration, AFolderOfTheMapsNameIsAnErrorAndStays) {
    const TemporaryFolder folder;
    folder.Make("VTR.TM", Terrain());
    std::filesystem::create_directory(folder.Path() + "worldmap.bmp");
    try {
        GenerateMap(folder.Make("map.dat", Template()), folder.Path(), "VTR.TM");
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
        EXPECT_EQ(FileNameOf(error.File()), "worldmap.bmp");
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() + "worldmap.bmp"));
}

/// The map.dat that the build has made beside the editor.
class BuiltTemplate : public testing::Test {
  protected:
    BuiltTemplate() {
        std::ifstream file(VTR_PROGRAM_FOLDER "/map.dat", std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(file), {});
    }

    int Byte(std::size_t at) const { return static_cast<unsigned char>(bytes_.at(at)); }
    int Number(std::size_t at) const {
        return Byte(at) + 256 * Byte(at + 1) + 65536 * Byte(at + 2) + 16777216 * Byte(at + 3);
    }
    struct Colour {
        int red;
        int green;
        int blue;
    };
    Colour ColourOf(int terrainByte) const {
        const std::size_t at = 54 + 4 * static_cast<std::size_t>(terrainByte);
        return {Byte(at + 2), Byte(at + 1), Byte(at)};
    }

    std::string bytes_;
};

TEST_F(BuiltTemplate, IsTheHeadOfABitmapOf640By320PixelsOf8Bits) {
    ASSERT_EQ(bytes_.size(), 1078U);
    EXPECT_EQ(bytes_.substr(0, 2), "BM");
    EXPECT_EQ(Number(2), 205878);  // length of the picture file
    EXPECT_EQ(Number(6), 0);
    EXPECT_EQ(Number(10), 1078);  // where the pixels begin
    EXPECT_EQ(Number(14), 40);
    EXPECT_EQ(Number(18), 640);
    EXPECT_EQ(Number(22), 320);  // bottom row first
    EXPECT_EQ(Number(26), 1 + 65536 * 8);
    EXPECT_EQ(Number(30), 0);  // not compressed
    EXPECT_EQ(Number(34), 204800);
    EXPECT_EQ(Number(46), 256);
}

TEST_F(BuiltTemplate, TheFourOrientationsOfATypeDifferALittle) {
    for (int type = 0; type < 64; ++type)
        for (int one = 0; one < 4; ++one)
            for (int other = 0; other < one; ++other) {
                const Colour a = ColourOf(64 * one + type);
                const Colour b = ColourOf(64 * other + type);
                const int difference = std::max(
                    {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
                EXPECT_GE(difference, 4) << type;
                EXPECT_LE(difference, 16) << type;
            }
}

TEST_F(BuiltTemplate, All256ColoursDifferAndTheirFourthByteIsZero) {
    std::set<int> colours;
    for (int byte = 0; byte < 256; ++byte) {
        colours.insert(Number(54 + 4 * static_cast<std::size_t>(byte)));
        EXPECT_EQ(Byte(54 + 4 * static_cast<std::size_t>(byte) + 3), 0);
    }
    EXPECT_EQ(colours.size(), 256U);
}

TEST_F(BuiltTemplate, WaterAndRiversAreBlueForestGreenCityRedRoadBrightAndLandAndCoastNotBlue) {
    for (int turn = 0; turn < 4; ++turn) {
        const Colour water = ColourOf(64 * turn + 2);
        EXPECT_GT(water.blue, water.red + 60);
        EXPECT_GT(water.blue, water.green + 40);
        for (const int type : {14, 15, 16, 17, 18, 19, 20, 21, 43}) {
            const Colour river = ColourOf(64 * turn + type);
            EXPECT_GT(river.blue, river.red + 60) << type;
            EXPECT_GT(river.blue, river.green + 40) << type;
        }
        for (const int type : {3, 4, 5, 32, 33, 44}) {
            const Colour coast = ColourOf(64 * turn + type);
            EXPECT_GT(coast.red, coast.blue + 40) << type;
            EXPECT_GT(coast.green, coast.blue + 20) << type;
        }
        for (const int type : {0, 1, 6, 7, 8, 9, 38, 47, 22, 23, 24, 25}) {
            const Colour land = ColourOf(64 * turn + type);
            EXPECT_TRUE(land.green > land.blue + 20 || land.red > land.blue + 20) << type;
        }
        for (const int type : {26, 27, 28, 29, 30, 31, 41}) {
            const Colour forest = ColourOf(64 * turn + type);
            EXPECT_GT(forest.green, forest.red + 20) << type;
            EXPECT_GT(forest.green, forest.blue + 20) << type;
        }
        for (const int type : {10, 11, 12, 13, 42, 46, 48, 49}) {
            const Colour city = ColourOf(64 * turn + type);
            EXPECT_GT(city.red, city.green + 60) << type;
            EXPECT_GT(city.red, city.blue + 60) << type;
        }
        for (const int type : {34, 35, 36, 37, 39, 40, 45}) {
            const Colour road = ColourOf(64 * turn + type);
            EXPECT_GT(std::min({road.red, road.green, road.blue}), 180) << type;
        }
    }
}

}  // namespace
}  // namespace vtr
