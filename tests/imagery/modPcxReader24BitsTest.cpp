#include <gmock/gmock.h>

#include "PcxFiles.h"

namespace vtr {
namespace {

using testing::Each;
using testing::ElementsAre;

// Two rows of two pixels; a line holds its reds, its greens, its blues.
constexpr Head twoByTwo{.xMax = 1, .yMax = 1, .planes = 3, .bytesPerLine = 2};

std::vector<std::uint32_t> PixelsOf(const Head &head, const Bytes &data) {
    return std::get<PcxPicture>(DecodePcx(Pcx(head, data))).picture.pixels;
}

TEST(PcxOf24Bits, EachLineHoldsItsThreePlanes) {
    const PcxResult result = DecodePcx(Pcx(twoByTwo, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_FALSE(std::get<PcxPicture>(result).palette);
    EXPECT_EQ(std::get<PcxPicture>(result).picture.width, 2);
    EXPECT_EQ(std::get<PcxPicture>(result).picture.height, 2);
    EXPECT_THAT(std::get<PcxPicture>(result).picture.pixels,
                ElementsAre(0xFF010305, 0xFF020406, 0xFF07090B, 0xFF080A0C));
}

TEST(PcxOf24Bits, RunsCrossPlanesAndLines) {
    EXPECT_THAT(PixelsOf(twoByTwo, {1, 0xC4, 255, 6, 0xC6, 9}),
                ElementsAre(0xFF01FFFF, 0xFFFFFF06, 0xFF090909, 0xFF090909));
    EXPECT_THAT(PixelsOf(twoByTwo, {0xCC, 200}), Each(0xFFC8C8C8));
}

TEST(PcxOf24Bits, ARunOfZeroWritesNothingAndTakesItsTwoBytes) {
    EXPECT_THAT(PixelsOf(twoByTwo, {0xC0, 0xFF, 1, 2, 3, 4, 5, 6, 0xC0, 9, 0xC6, 7, 0xC0, 1}),
                ElementsAre(0xFF010305, 0xFF020406, 0xFF070707, 0xFF070707));
}

TEST(PcxOf24Bits, ARunOfZeroAtTheEndLeavesTheRestBlack) {
    EXPECT_THAT(PixelsOf(twoByTwo, {1, 2, 3, 0xC0}),
                ElementsAre(0xFF010300, 0xFF020000, 0xFF000000, 0xFF000000));
    EXPECT_THAT(PixelsOf(twoByTwo, {0xC5, 7, 0xC0, 9, 0xC0}),
                ElementsAre(0xFF070707, 0xFF070700, 0xFF000000, 0xFF000000));
}

TEST(PcxOf24Bits, TheManufacturerVersionAndEncodingAreNotLookedAt) {
    Bytes file = Pcx(twoByTwo, {0xC6, 5, 0xC6, 6});
    file[0] = file[1] = file[2] = 0x77;
    EXPECT_THAT(std::get<PcxPicture>(DecodePcx(file)).picture.pixels,
                ElementsAre(0xFF050505, 0xFF050505, 0xFF060606, 0xFF060606));
}

TEST(PcxOf24Bits, TooLittleDataLeavesTheRestBlack) {
    EXPECT_THAT(PixelsOf(twoByTwo, {1, 2, 3, 4, 5}),
                ElementsAre(0xFF010305, 0xFF020400, 0xFF000000, 0xFF000000));
    EXPECT_THAT(PixelsOf(twoByTwo, {}), Each(0xFF000000));
}

TEST(PcxOf24Bits, ARunWithoutAByteBehindItRepeatsZero) {
    EXPECT_THAT(PixelsOf(twoByTwo, {0xC8, 5, 0xC4}),
                ElementsAre(0xFF050505, 0xFF050505, 0xFF050000, 0xFF050000));
    ExpectError(Pcx(twoByTwo, {0xC8, 5, 0xC6}), ErrorKind::IndexOutOfRange, 128 + 2);
}

TEST(PcxOf24Bits, DataBeyondThePlanesIsAnIndexErrorAtTheByteThatDoesNotFit) {
    // The buffer has one byte more than the planes. The zero behind the data fills it.
    EXPECT_THAT(PixelsOf(twoByTwo, {0xCC, 9}), Each(0xFF090909));
    ExpectError(Pcx(twoByTwo, {0xCC, 9, 1}), ErrorKind::IndexOutOfRange, 128 + 3);
    ExpectError(Pcx(twoByTwo, {0xCC, 9, 1, 1}), ErrorKind::IndexOutOfRange, 128 + 3);
    ExpectError(Pcx(twoByTwo, {0xCB, 9, 0xC3, 1, 1}), ErrorKind::IndexOutOfRange, 128 + 2);
    EXPECT_THAT(PixelsOf(twoByTwo, {0xCC, 9, 0xC1}), Each(0xFF090909));
}

TEST(PcxOf24Bits, LinesLongerThanTheWidthAreAnIndexError) {
    Head padded = twoByTwo;
    padded.bytesPerLine = 3;
    ExpectError(Pcx(padded, Bytes(18, 1)), ErrorKind::IndexOutOfRange, 128 + 13);
    ExpectError(Pcx(padded, {}), ErrorKind::IndexOutOfRange, 66);
}

TEST(PcxOf24Bits, LinesShorterThanTheWidthOverlap) {
    Head overlapping = twoByTwo;
    overlapping.bytesPerLine = 1;
    EXPECT_THAT(PixelsOf(overlapping, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
                ElementsAre(0xFF010203, 0xFF020304, 0xFF040506, 0xFF050607));
    overlapping.bytesPerLine = 0;
    EXPECT_THAT(PixelsOf(overlapping, {1, 2}), ElementsAre(0xFF010101, 0xFF020202, 0xFF010101, 0xFF020202));
    overlapping.bytesPerLine = -1;
    ExpectError(Pcx(overlapping, {1, 2}), ErrorKind::IndexOutOfRange, 66);
}

TEST(PcxOf24Bits, EveryTruncationShowsWhatIsThere) {
    Bytes planes;
    for (int i = 0; i < 5 * 4 * 3; ++i)
        planes.push_back(static_cast<std::uint8_t>(i + 1));
    const Head head{.xMax = 4, .yMax = 3, .planes = 3, .bytesPerLine = 5};
    const Bytes whole = Pcx(head, planes);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        if (length < 128) {
            ExpectError(part, ErrorKind::FileTooShort, static_cast<std::int64_t>(length));
            continue;
        }
        const auto at = [&](std::size_t i) {
            return i < length - 128 ? static_cast<std::uint32_t>(i + 1) : 0U;
        };
        const PcxResult result = DecodePcx(part);
        for (std::size_t i = 0; i < 20; ++i) {
            const std::size_t red = i / 5 * 15 + i % 5;
            EXPECT_EQ(std::get<PcxPicture>(result).picture.pixels[i],
                      0xFF000000U + at(red) * 65536 + at(red + 5) * 256 + at(red + 10))
                << length << ' ' << i;
        }
    }
}

}  // namespace
}  // namespace vtr
