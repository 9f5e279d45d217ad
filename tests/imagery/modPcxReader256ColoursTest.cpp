#include <gmock/gmock.h>

#include "PcxFiles.h"

namespace vtr {
namespace {

using testing::Each;
using testing::ElementsAre;

std::vector<int> EntriesOf(const Head &head, const Bytes &data) {
    return Entries(DecodePcx(PcxOf256Colours(head, data)));
}

TEST(PcxOf256Colours, PlainBytesAreThePaletteEntriesRowByRowFromTheTop) {
    const PcxResult result = DecodePcx(PcxOf256Colours(fourByTwo, {1, 2, 3, 4, 5, 6, 7, 191}));
    const Picture &picture = std::get<PcxPicture>(result).picture;
    EXPECT_EQ(picture.width, 4);
    EXPECT_EQ(picture.height, 2);
    EXPECT_THAT(picture.pixels, ElementsAre(0xFF0102FE, 0xFF0204FD, 0xFF0306FC, 0xFF0408FB,  //
                                            0xFF050AFA, 0xFF060CF9, 0xFF070EF8, 0xFFBF7E40));
}

TEST(PcxOf256Colours, TheColourTableIsRedGreenBlueAndTheLogicalPaletteHasRedAndBlueExchanged) {
    const PcxResult result = DecodePcx(PcxOf256Colours(fourByTwo, {0xC4, 0, 0xC4, 0}));
    const auto &palette = std::get<PcxPicture>(result).palette;
    ASSERT_TRUE(palette);
    EXPECT_EQ(palette->colourTable[0], 255U);
    EXPECT_EQ(palette->colourTable[3], 3U * 65536 + 6 * 256 + 252);
    EXPECT_EQ(palette->colourTable[200], 200U * 65536 + 144 * 256 + 55);
    EXPECT_EQ(palette->logicalPalette[3], (PaletteEntry{.red = 252, .green = 6, .blue = 3, .flags = 0}));
    EXPECT_EQ(palette->logicalPalette[255], (PaletteEntry{.red = 0, .green = 254, .blue = 255, .flags = 0}));
}

TEST(PcxOf256Colours, ARunRepeatsItsByte) {
    EXPECT_THAT(EntriesOf(fourByTwo, {0xC3, 200, 9, 0xC1, 255, 0xC3, 7}),
                ElementsAre(200, 200, 200, 9, 255, 7, 7, 7));
}

TEST(PcxOf256Colours, TheLongestRunIs63Pixels) {
    const std::vector<int> entries =
        EntriesOf({.xMax = 63, .yMax = 0, .bytesPerLine = 64}, {0xFF, 77, 0xC1, 200});
    ASSERT_EQ(entries.size(), 64U);
    EXPECT_EQ(std::count(entries.begin(), entries.end(), 77), 63);
    EXPECT_EQ(entries.back(), 200);
}

TEST(PcxOf256Colours, ARunOfZeroWritesNothingAndTakesItsTwoBytes) {
    EXPECT_THAT(EntriesOf(fourByTwo, {1, 0xC0, 99, 2, 0xC0, 0xFF, 3, 4, 0xC0, 98, 5, 6, 7, 8}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(PcxOf256Colours, ARunAcrossTheLinesEndIsCutAndTheRestIsLost) {
    EXPECT_THAT(EntriesOf(fourByTwo, {1, 2, 0xC5, 9, 5, 6, 7, 8}), ElementsAre(1, 2, 9, 9, 5, 6, 7, 8));
}

TEST(PcxOf256Colours, TheManufacturerVersionAndEncodingAreNotLookedAt) {
    Bytes file = PcxOf256Colours(fourByTwo, {0xC4, 5, 0xC4, 6});
    file[0] = file[1] = file[2] = 0x77;
    EXPECT_THAT(Entries(DecodePcx(file)), ElementsAre(5, 5, 5, 5, 6, 6, 6, 6));
}

TEST(PcxOf256Colours, APictureNeedNotBeginAtZero) {
    const Head head{.xMin = -3, .yMin = 10, .xMax = 0, .yMax = 11, .bytesPerLine = 4};
    EXPECT_THAT(EntriesOf(head, {0xC4, 5, 0xC4, 6}), ElementsAre(5, 5, 5, 5, 6, 6, 6, 6));
}

constexpr Head oddWidthHead{.xMax = 4, .yMax = 1, .bytesPerLine = 6};

TEST(PcxOf256Colours, AnOddWidthShowsItsPaddingAsAColumn) {
    const PcxResult result = DecodePcx(PcxOf256Colours(oddWidthHead, {1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(std::get<PcxPicture>(result).picture.width, 6);
    EXPECT_THAT(Entries(result), ElementsAre(1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10, 11));
}

TEST(PcxOf256Colours, ARunBeyondThePaddingIsCutAtTheWidthAndTheLineGoesOn) {
    EXPECT_THAT(EntriesOf(oddWidthHead, {1, 2, 3, 4, 0xC3, 5, 50, 6, 7, 8, 9, 10, 11}),
                ElementsAre(1, 2, 3, 4, 5, 50, 6, 7, 8, 9, 10, 11));
}

TEST(PcxOf256Colours, ARunThatEndsWithThePaddingIsNotCut) {
    EXPECT_THAT(EntriesOf(oddWidthHead, {1, 2, 3, 4, 0xC2, 5, 0xC6, 7}),
                ElementsAre(1, 2, 3, 4, 5, 5, 7, 7, 7, 7, 7, 7));
}

TEST(PcxOf256Colours, ARunThatBeginsInThePaddingAndIsTooLongIsLost) {
    EXPECT_THAT(EntriesOf(oddWidthHead, {1, 2, 3, 4, 5, 0xC2, 99, 6, 0xC6, 7}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 7, 7, 7, 7, 7));
}

TEST(PcxOf256Colours, ATooLongRunBehindTheWidthTakesTheLineBackToTheWidth) {
    const Head head{.xMax = 1, .yMax = 0, .bytesPerLine = 8};
    EXPECT_THAT(EntriesOf(head, {1, 2, 3, 4, 5, 6, 0xC5, 99, 33, 44, 55, 66, 77, 88}),
                ElementsAre(1, 2, 33, 44, 55, 66, 77, 88));
}

TEST(PcxOf256Colours, AWidthAboveTheLineCutsRunsInThePaddingOfTheRow) {
    // Six bytes a line are in rows of eight. A run cut at the width of eight fits but does not show.
    const Head head{.xMax = 7, .yMax = 1, .bytesPerLine = 6};
    EXPECT_THAT(EntriesOf(head, {1, 2, 3, 4, 5, 0xFF, 6, 7, 8, 9, 10, 11, 0xFF, 12}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(PcxOf256Colours, AWidthAboveTheWholeRowIsAnIndexErrorAtTheRun) {
    const Head head{.xMax = 8, .yMax = 1, .bytesPerLine = 6};
    ExpectError(PcxOf256Colours(head, {1, 2, 3, 4, 5, 0xC2, 6}), ErrorKind::IndexOutOfRange, 128 + 5);
    EXPECT_THAT(EntriesOf(head, {0xC6, 6, 0xC6, 7}), ElementsAre(6, 6, 6, 6, 6, 6, 7, 7, 7, 7, 7, 7));
}

TEST(PcxOf256Colours, AWidthOfZeroTakesATooLongRunBackToTheLinesBeginning) {
    const Head head{.xMin = 1, .xMax = 0, .bytesPerLine = 4};
    EXPECT_THAT(EntriesOf(head, {1, 0xC2, 5, 4}), ElementsAre(1, 5, 5, 4));
    EXPECT_THAT(EntriesOf(head, {1, 2, 0xC3, 5, 6, 7, 8, 9}), ElementsAre(6, 7, 8, 9));
}

TEST(PcxOf256Colours, ANegativeWidthMattersOnlyWhereARunIsCut) {
    const Head head{.xMin = 9, .xMax = 0, .bytesPerLine = 4};
    EXPECT_THAT(EntriesOf(head, {1, 0xC2, 5, 4}), ElementsAre(1, 5, 5, 4));
    ExpectError(PcxOf256Colours(head, {1, 2, 0xC3, 5, 6, 7, 8, 9}), ErrorKind::IndexOutOfRange, 128 + 2);
}

TEST(PcxOf256Colours, DataThatEndsEarlyGoesOnIntoThePaletteBlock) {
    // The buffer holds the palette too: its marker and first entries become pixels.
    EXPECT_THAT(EntriesOf(fourByTwo, {1, 2, 3, 4, 5}), ElementsAre(1, 2, 3, 4, 5, 12, 0, 0));
}

TEST(PcxOf256Colours, DataThatEndsWithTheFileIsAnIndexErrorAtItsEnd) {
    const Head head{.xMax = 99, .yMax = 99, .bytesPerLine = 100};
    ExpectError(PcxOf256Colours(head, {}), ErrorKind::IndexOutOfRange, 128 + 769);
    Bytes run = PcxOf256Colours(head, {});
    run.back() = 0xC5;
    ExpectError(run, ErrorKind::IndexOutOfRange, 128 + 769);
}

TEST(PcxOf256Colours, AFileWithoutThePaletteMarkerIsRefusedWithItsMessage) {
    Bytes file = PcxOf256Colours(fourByTwo, {1, 2, 3, 4, 5, 6, 7, 8});
    file[file.size() - 769] = 11;
    ExpectRefusal(file, "The PCX that was passed didn't have a 256 colour palette! Can't read it!",
                  PcxIcon::Exclamation);
}

TEST(PcxOf256Colours, TheMarkerIsLookedAtBeforeTheSize) {
    Bytes file = PcxOf256Colours({.xMax = -9, .yMax = -9}, {});
    ExpectError(file, ErrorKind::IndexOutOfRange, 10);
    file[file.size() - 769] = 0;
    ExpectRefusal(file, "The PCX that was passed didn't have a 256 colour palette! Can't read it!",
                  PcxIcon::Exclamation);
}

TEST(PcxOf256Colours, EveryTruncationIsRefusedOrAnError) {
    const Bytes whole = PcxOf256Colours({.xMax = 19, .yMax = 29, .bytesPerLine = 20}, Bytes(600, 33));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        if (length < 769)
            ExpectError(part, ErrorKind::FileTooShort, static_cast<std::int64_t>(length));
        else
            ExpectRefusal(part, "The PCX that was passed didn't have a 256 colour palette! Can't read it!",
                          PcxIcon::Exclamation);
    }
    EXPECT_THAT(Entries(DecodePcx(whole)), Each(33));
}

}  // namespace
}  // namespace vtr
