#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "TemporaryFolder.h"
#include "TerrainMap.h"

namespace vtr {
namespace {

ErrorKind KindAt(const TerrainMap &map, double x, double y) {
    try {
        TerrainByte(map, x, y, {.file = "VTR.TM"});
    } catch (const Error &error) {
        EXPECT_EQ(error.File(), "VTR.TM");
        return error.Kind();
    }
    ADD_FAILURE() << "no error at " << x << ", " << y;
    return ErrorKind::FileMissing;
}

TEST(TerrainMap, RowZeroComesFirst) {
    TerrainMap map(204800);
    map[3] = 1;
    map[640] = 2;
    map[640 * 2 + 5] = 3;
    map[204799] = 4;
    EXPECT_EQ(TerrainByte(map, 3, 0), 1);
    EXPECT_EQ(TerrainByte(map, 0, 1), 2);
    EXPECT_EQ(TerrainByte(map, 5, 2), 3);
    EXPECT_EQ(TerrainByte(map, 639, 319), 4);
}

TEST(TerrainMap, TheTileBehindTheLastIsAnIndexError) {
    const TerrainMap map(204800);
    EXPECT_EQ(TerrainByte(map, 639, 319), 0);
    EXPECT_EQ(KindAt(map, 640, 319), ErrorKind::IndexOutOfRange);
    EXPECT_EQ(KindAt(map, 0, 320), ErrorKind::IndexOutOfRange);
    EXPECT_EQ(KindAt(map, -1, 0), ErrorKind::IndexOutOfRange);
}

TEST(TerrainMap, AColumnBehindTheRowsEndIsTheNextRows) {
    TerrainMap map(204800);
    map[640 + 1] = 9;
    EXPECT_EQ(TerrainByte(map, 641, 0), 9);
}

TEST(TerrainMap, TheIndexIsRoundedHalvesToEven) {
    TerrainMap map(204800);
    map[2] = 2;
    map[4] = 4;
    EXPECT_EQ(TerrainByte(map, 1.5, 0), 2);
    EXPECT_EQ(TerrainByte(map, 2.5, 0), 2);
    EXPECT_EQ(TerrainByte(map, 3.5, 0), 4);
    EXPECT_EQ(KindAt(map, 639.6, 319), ErrorKind::IndexOutOfRange);
}

TEST(TerrainMap, ANumberBeyond32BitsIsAnOverflow) {
    const TerrainMap map(204800);
    EXPECT_EQ(KindAt(map, 3e9, 0), ErrorKind::Overflow);
    EXPECT_EQ(KindAt(map, 0, std::nan("")), ErrorKind::Overflow);
}

TEST(TerrainMap, IsReadWhole) {
    const TemporaryFolder folder;
    std::string content(204800, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i % 251);
    TerrainMap map;
    EXPECT_EQ(ReadTerrainMap(folder.Make("VTR.TM", content), map), 204800U);
    ASSERT_EQ(map.size(), 204800U);
    EXPECT_TRUE(std::equal(map.begin(), map.end(), content.begin(),
                           [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); }));
}

TEST(TerrainMap, WhatAShortFileLacksIsZeroAndItsLengthIsTold) {
    const TemporaryFolder folder;
    TerrainMap map(204800, 7);
    EXPECT_EQ(ReadTerrainMap(folder.Make("VTR.TM", "AB"), map), 2U);
    ASSERT_EQ(map.size(), 204800U);
    EXPECT_EQ(map[1], 'B');
    EXPECT_EQ(map[2], 0);
    EXPECT_EQ(map[204799], 0);
}

TEST(TerrainMap, WhatALongFileHasBeyondIsLeftAlone) {
    const TemporaryFolder folder;
    TerrainMap map;
    EXPECT_EQ(ReadTerrainMap(folder.Make("VTR.TM", std::string(204803, 'x')), map), 204800U);
    EXPECT_EQ(map.size(), 204800U);
}

TEST(TerrainMap, AnEmptyPathLeavesTheMapAsItIs) {
    TerrainMap map(204800, 7);
    ReadTerrainMap("", map);
    EXPECT_EQ(map, TerrainMap(204800, 7));
}

TEST(TerrainMap, AMissingFileIsAFileErrorAndLeavesTheMapAsItIs) {
    const TemporaryFolder folder;
    TerrainMap map(204800, 7);
    EXPECT_THROW(ReadTerrainMap(folder.Path() + "VTR.TM", map), Error);
    EXPECT_EQ(map, TerrainMap(204800, 7));
}

}  // namespace
}  // namespace vtr
