#include <gmock/gmock.h>

#include "PcxEncoder.h"

namespace vtr {
namespace {

Bytes EncodedRows(int width, int height, const Bytes &pixels) {
    const Bytes file = EncodePcx(width, height, pixels, Palette{});
    return {file.begin() + 128, file.end() - 769};
}

TEST(PcxEncoder, WritesTheHeaderOfAnEightBitPictureOfOnePlane) {
    const Bytes file = EncodePcx(4, 2, Bytes(8), Palette{});
    EXPECT_EQ(file[0], 10);
    EXPECT_EQ(file[1], 5);
    EXPECT_EQ(file[2], 1);
    EXPECT_EQ(file[3], 8);
    EXPECT_EQ(GetUint16(file, 8), 3);
    EXPECT_EQ(GetUint16(file, 10), 1);
    EXPECT_EQ(file[65], 1);
    EXPECT_EQ(GetUint16(file, 66), 4);
}

TEST(PcxEncoder, EndsWithAMarkAndThePalette) {
    Palette palette{};
    palette[1] = {11, 22, 33};
    palette[255] = {44, 55, 66};
    const Bytes file = EncodePcx(2, 1, Bytes{1, 2}, palette);
    EXPECT_EQ(file[file.size() - 769], 12);
    EXPECT_EQ(file[file.size() - 768 + 3], 11);
    EXPECT_EQ(file[file.size() - 768 + 5], 33);
    EXPECT_EQ(file.back(), 66);
}

TEST(PcxEncoder, WritesRunsAndSingleBytes) {
    EXPECT_THAT(EncodedRows(6, 1, {7, 7, 7, 1, 2, 2}), testing::ElementsAre(0xC3, 7, 1, 0xC2, 2));
}

TEST(PcxEncoder, WritesABytesThatLooksLikeARunAsARunOfOne) {
    EXPECT_THAT(EncodedRows(4, 1, {191, 192, 255, 0}), testing::ElementsAre(191, 0xC1, 192, 0xC1, 255, 0));
}

TEST(PcxEncoder, SplitsRunsOfMoreThan63AndEndsThemWithTheRow) {
    EXPECT_THAT(EncodedRows(64, 2, Bytes(128, 5)), testing::ElementsAre(0xFF, 5, 5, 0xFF, 5, 5));
}

}  // namespace
}  // namespace vtr
