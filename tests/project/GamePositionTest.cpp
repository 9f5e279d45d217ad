#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "ErrorThrownBy.h"
#include "GamePosition.h"

namespace vtr {
namespace {

using Position = std::array<std::uint8_t, gamePositionSize>;

Position PositionOf(int upper, int fractions = 0) {
    const auto word = static_cast<std::uint16_t>(upper);
    return {static_cast<std::uint8_t>(fractions % 256), static_cast<std::uint8_t>(fractions / 256),
            static_cast<std::uint8_t>(word % 256), static_cast<std::uint8_t>(word / 256)};
}

TEST(GamePosition, UpperHalfMinus640OnXGivesPixel0) {
    EXPECT_EQ(PixelOfGamePosition(Axis::X, Position{0, 0, 0x80, 0xFD}), 0);
}

TEST(GamePosition, UpperHalfMinus644OnXGivesPixelMinus1) {
    EXPECT_EQ(PixelOfGamePosition(Axis::X, Position{0, 0, 0x7C, 0xFD}), -1);
}

TEST(GamePosition, PixelsCountQuarterTilesDownwards) {
    struct Row {
        Axis axis;
        int upper;
        int pixel;
    };
    for (const Row &row :
         {Row{Axis::X, -641, -1}, Row{Axis::X, -637, 0}, Row{Axis::X, -636, 1}, Row{Axis::X, 0, 160},
          Row{Axis::X, 1919, 639}, Row{Axis::X, -32768, -8032}, Row{Axis::X, 32127, 8191},
          Row{Axis::Y, -7040, 0}, Row{Axis::Y, -7041, -1}, Row{Axis::Y, 0, 1760}, Row{Axis::Y, -1, 1759},
          Row{Axis::Y, -5761, 319}, Row{Axis::Y, -32768, -6432}, Row{Axis::Y, 25727, 8191}})
        EXPECT_EQ(PixelOfGamePosition(row.axis, PositionOf(row.upper)), row.pixel) << row.upper;
}

TEST(GamePosition, TheUpperHalfPlusTheOriginTrapsBeyond16Bits) {
    EXPECT_EQ(KindThrownBy([] { PixelOfGamePosition(Axis::X, PositionOf(32128)); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([] { PixelOfGamePosition(Axis::Y, PositionOf(25728)); }), ErrorKind::Overflow);
}

TEST(GamePosition, OverflowNamesThePlace) {
    try {
        PixelOfGamePosition(Axis::X, PositionOf(32128),
                            {.file = "T.DAT", .offset = 36, .item = "target", .index = 1});
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.File(), "T.DAT");
        EXPECT_EQ(error.PlaceText(), "offset 36, target 1");
        EXPECT_EQ(error.Found(), "32768");
    }
}

TEST(GamePosition, FineOffsetsAreMetresWithinTheTile) {
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, Position{0, 0, 0, 0}), 0);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, Position{0, 0, 1, 0}), 1025);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::Y, Position{0, 0, 2, 0}), 2050);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, Position{0, 1, 0, 0}), 4.00390625);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, Position{1, 0, 0, 0}), 0.0156402587890625);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::Y, Position{255, 255, 3, 0}), 4099.984359741211);
}

TEST(GamePosition, FineOffsetsOfNegativePositionsAreNeverNegative) {
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, PositionOf(-641)), 3075);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::X, PositionOf(-32768, 128 * 256)), 512.5);
    EXPECT_EQ(FineOffsetOfGamePosition(Axis::Y, PositionOf(-7042)), 2050);
}

TEST(GamePosition, PixelsAreStoredAsTheTwosComplementOfQuarterTiles) {
    EXPECT_EQ(StoredUpperHalf(Axis::X, 0), 65536 - 640);
    EXPECT_EQ(StoredUpperHalf(Axis::X, 160), 0);
    EXPECT_EQ(StoredUpperHalf(Axis::X, 639), 1916);
    EXPECT_EQ(StoredUpperHalf(Axis::Y, 0), 65536 - 7040);
    EXPECT_EQ(StoredUpperHalf(Axis::Y, 319), 65536 - 5764);
    EXPECT_EQ(StoredUpperHalf(Axis::Y, 1760), 0);
}

TEST(GamePosition, StoringTrapsEachStepBeyond16Bits) {
    EXPECT_EQ(StoredUpperHalf(Axis::X, 8191), 32124);
    EXPECT_EQ(StoredUpperHalf(Axis::X, -8032), 32768);
    EXPECT_EQ(StoredUpperHalf(Axis::Y, 8511), 27004);
    EXPECT_EQ(StoredUpperHalf(Axis::Y, -6432), 32768);
    for (const std::int16_t pixel : std::initializer_list<std::int16_t>{8192, -8033, 32767, -32768})
        EXPECT_EQ(KindThrownBy([pixel] { StoredUpperHalf(Axis::X, pixel); }), ErrorKind::Overflow) << pixel;
    for (const std::int16_t pixel : std::initializer_list<std::int16_t>{8512, -6433, 32767, -32768})
        EXPECT_EQ(KindThrownBy([pixel] { StoredUpperHalf(Axis::Y, pixel); }), ErrorKind::Overflow) << pixel;
}

Position Encoded(Axis axis, std::int16_t pixel, double fine) {
    Position bytes{};
    EncodeGamePosition(axis, pixel, fine, bytes);
    return bytes;
}

TEST(GamePosition, WritesTheBytesOfPixelAndFineOffset) {
    EXPECT_EQ(Encoded(Axis::X, 0, 0), (Position{0, 0, 0x80, 0xFD}));
    EXPECT_EQ(Encoded(Axis::X, 639, 1025), (Position{0, 0, 0x7D, 0x07}));
    EXPECT_EQ(Encoded(Axis::Y, 319, 512.5), (Position{0, 128, 0x7C, 0xE9}));
    EXPECT_EQ(Encoded(Axis::X, 160, 4.00390625), (Position{0, 1, 0, 0}));
    // 1000 m: 1000 / 4100 * 1024 = 249.756..., and .756 * 256 = 193.56.
    EXPECT_EQ(Encoded(Axis::X, 160, 1000), (Position{193, 249, 0, 0}));
}

TEST(GamePosition, AFineOffsetOfAWholeTileCarriesIntoTheNextPixelUntilTheByteIsFull) {
    EXPECT_EQ(Encoded(Axis::X, 160, 4100), (Position{0, 0, 4, 0}));
    // Pixel 223 is stored as 252, 0: four more quarters do not fit the byte.
    EXPECT_EQ(Encoded(Axis::X, 223, 4099), (Position{0xC0, 0xFF, 255, 0}));
    EXPECT_EQ(KindThrownBy([] { Encoded(Axis::X, 223, 4100); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([] { Encoded(Axis::X, 160, -1); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([] { Encoded(Axis::X, 160, 1e300); }), ErrorKind::Overflow);
}

TEST(GamePosition, ARefusedPositionLeavesTheBytesAsTheyWere) {
    Position bytes{1, 2, 3, 4};
    EXPECT_THROW(EncodeGamePosition(Axis::X, 223, 4100, bytes), Error);
    EXPECT_EQ(bytes, (Position{1, 2, 3, 4}));
}

TEST(GamePosition, EveryFractionOfATileSurvivesLoadingAndSaving) {
    for (const int tile : {-640, -32768, 0, 252, 32124})
        for (int fractions = 0; fractions < 4 * 65536; ++fractions) {
            const Position bytes = PositionOf(tile + fractions / 65536, fractions % 65536);
            const double read = FineOffsetOfGamePosition(Axis::X, bytes);
            ASSERT_EQ(read, fractions / 262144.0 * 4100);
            ASSERT_EQ(Encoded(Axis::X, PixelOfGamePosition(Axis::X, bytes), read), bytes) << read;
        }
}

TEST(GamePosition, AnyMetresAreRoundedDownToAStepOfTheFile) {
    std::mt19937 random(4100);
    for (int run = 0; run < 10000; ++run) {
        const double metres = static_cast<double>(random()) / 4294967296 * 4100;
        const double read = FineOffsetOfGamePosition(Axis::X, Encoded(Axis::X, 160, metres));
        ASSERT_LE(read, metres);
        ASSERT_GT(read, metres - 4100.0 / 262144);
    }
}

TEST(GamePosition, EveryPixelSurvivesSavingAndLoading) {
    for (const Axis axis : {Axis::X, Axis::Y})
        for (std::int16_t pixel = -6432; pixel < 8192; ++pixel)
            ASSERT_EQ(PixelOfGamePosition(axis, Encoded(axis, pixel, 2050)), pixel);
}

TEST(GamePosition, ATwoByteValueOf255And255ReadsAsNone) {
    EXPECT_EQ(TwoByteValue(255, 255), 0);
    EXPECT_EQ(TwoByteValue(254, 255), 65534);
    EXPECT_EQ(TwoByteValue(255, 254), 65279);
    EXPECT_EQ(TwoByteValue(1, 2), 513);
    EXPECT_EQ(TwoByteValue(0, 0), 0);
}

}  // namespace
}  // namespace vtr
