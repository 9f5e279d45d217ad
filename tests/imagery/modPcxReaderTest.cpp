#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <random>

#include "LiteralPcx.h"
#include "TemporaryFolder.h"
#include "modPcxReader.h"

namespace vtr {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

struct Head {
    int xMin = 0;
    int yMin = 0;
    int xMax = 0;
    int yMax = 0;
    int planes = 1;
    int bytesPerLine = 0;
    int bitsPerPixel = 8;
};

/// A header of 128 bytes and data behind it.
Bytes Pcx(const Head &head, const Bytes &data) {
    Bytes file(128 + data.size());
    const auto put = [&file](std::size_t at, int value) {
        file[at] = static_cast<std::uint8_t>(value & 0xFF);
        file[at + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    };
    file[0] = 10;
    file[1] = 5;
    file[2] = 1;
    file[3] = static_cast<std::uint8_t>(head.bitsPerPixel);
    put(4, head.xMin);
    put(6, head.yMin);
    put(8, head.xMax);
    put(10, head.yMax);
    file[65] = static_cast<std::uint8_t>(head.planes);
    put(66, head.bytesPerLine);
    std::copy(data.begin(), data.end(), file.begin() + 128);
    return file;
}

/// The same with a palette behind the data in which entry i is (i, 2 i, 255 - i).
Bytes PcxOf256Colours(const Head &head, const Bytes &data) {
    Bytes file = Pcx(head, data);
    file.push_back(12);
    for (int i = 0; i < 256; ++i)
        for (const int part : {i, 2 * i, 255 - i})
            file.push_back(static_cast<std::uint8_t>(part & 0xFF));
    return file;
}

/// Which palette entry a pixel shows.
int Entry(std::uint32_t pixel) {
    return static_cast<int>((pixel >> 16) & 0xFF);
}

std::vector<int> Entries(const PcxResult &result) {
    std::vector<int> entries;
    for (const std::uint32_t pixel : std::get<PcxPicture>(result).picture.pixels)
        entries.push_back(Entry(pixel));
    return entries;
}

std::vector<int> EntriesOf(const Head &head, const Bytes &data) {
    return Entries(DecodePcx(PcxOf256Colours(head, data)));
}

void ExpectError(const Bytes &file, ErrorKind kind, std::int64_t offset) {
    try {
        DecodePcx(file, {.file = "tile.pcx"});
        FAIL() << "no error";
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), kind) << error.what();
        EXPECT_EQ(error.Offset(), offset) << error.what();
        EXPECT_EQ(error.File(), "tile.pcx");
    }
}

void ExpectRefusal(const Bytes &file, std::string_view message, PcxIcon icon) {
    const PcxResult result = DecodePcx(file);
    ASSERT_TRUE(std::holds_alternative<PcxRefusal>(result));
    EXPECT_EQ(std::get<PcxRefusal>(result).message, message);
    EXPECT_EQ(std::get<PcxRefusal>(result).icon, icon);
}

constexpr Head fourByTwo{.xMax = 3, .yMax = 1, .bytesPerLine = 4};

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

constexpr Head oddWidth{.xMax = 4, .yMax = 1, .bytesPerLine = 6};

TEST(PcxOf256Colours, AnOddWidthShowsItsPaddingAsAColumn) {
    const PcxResult result = DecodePcx(PcxOf256Colours(oddWidth, {1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(std::get<PcxPicture>(result).picture.width, 6);
    EXPECT_THAT(Entries(result), ElementsAre(1, 2, 3, 4, 5, 0, 6, 7, 8, 9, 10, 11));
}

TEST(PcxOf256Colours, ARunBeyondThePaddingIsCutAtTheWidthAndTheLineGoesOn) {
    EXPECT_THAT(EntriesOf(oddWidth, {1, 2, 3, 4, 0xC3, 5, 50, 6, 7, 8, 9, 10, 11}),
                ElementsAre(1, 2, 3, 4, 5, 50, 6, 7, 8, 9, 10, 11));
}

TEST(PcxOf256Colours, ARunThatEndsWithThePaddingIsNotCut) {
    EXPECT_THAT(EntriesOf(oddWidth, {1, 2, 3, 4, 0xC2, 5, 0xC6, 7}),
                ElementsAre(1, 2, 3, 4, 5, 5, 7, 7, 7, 7, 7, 7));
}

TEST(PcxOf256Colours, ARunThatBeginsInThePaddingAndIsTooLongIsLost) {
    EXPECT_THAT(EntriesOf(oddWidth, {1, 2, 3, 4, 5, 0xC2, 99, 6, 0xC6, 7}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 7, 7, 7, 7, 7));
}

TEST(PcxOf256Colours, ATooLongRunBehindTheWidthTakesTheLineBackToTheWidth) {
    const Head head{.xMax = 1, .yMax = 0, .bytesPerLine = 8};
    EXPECT_THAT(EntriesOf(head, {1, 2, 3, 4, 5, 6, 0xC5, 99, 33, 44, 55, 66, 77, 88}),
                ElementsAre(1, 2, 33, 44, 55, 66, 77, 88));
}

TEST(PcxOf256Colours, AWidthAboveTheLineCutsRunsInThePaddingOfTheRow) {
    // Six bytes a line lie in rows of eight: a run cut at the width of eight fits, and does not show.
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
    // The buffer has room for one byte more than the planes, which the zero behind the data fills.
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

TEST(Pcx, OtherDepthsThan8BitsAreRefusedWithTheirMessage) {
    for (const int bits : {0, 1, 2, 4, 16, 24, 255})
        for (const int planes : {0, 1, 3, 4}) {
            Head head = fourByTwo;
            head.bitsPerPixel = bits;
            head.planes = planes;
            ExpectRefusal(PcxOf256Colours(head, Bytes(8)), "Sorry, can't load that pcx file!", PcxIcon::None);
        }
}

TEST(Pcx, OtherNumbersOfPlanesAreRefusedWithoutAWord) {
    for (const int planes : {0, 2, 4, 255}) {
        Head head = fourByTwo;
        head.planes = planes;
        ExpectRefusal(PcxOf256Colours(head, Bytes(8)), "", PcxIcon::None);
    }
}

TEST(Pcx, ASizeBeyond16BitsIsAnOverflow) {
    for (const int planes : {1, 3}) {
        const auto file = [planes](Head head) {
            head.planes = planes;
            return PcxOf256Colours(head, {});
        };
        ExpectError(file({.xMax = 32767, .bytesPerLine = 4}), ErrorKind::Overflow, 8);
        ExpectError(file({.xMin = -1, .xMax = 32767, .bytesPerLine = 4}), ErrorKind::Overflow, 8);
        ExpectError(file({.xMin = 32767, .xMax = -2, .bytesPerLine = 4}), ErrorKind::Overflow, 8);
        ExpectError(file({.yMin = -32768, .yMax = 0, .bytesPerLine = 4}), ErrorKind::Overflow, 10);
        ExpectError(file({.yMax = 32767, .bytesPerLine = 4}), ErrorKind::Overflow, 10);
    }
    ExpectError(PcxOf256Colours({.bytesPerLine = 32767}, {}), ErrorKind::Overflow, 66);
}

TEST(Pcx, AWidthOrHeightBelowOneIsAnIndexError) {
    // In one plane the width is that of the lines; Xmax counts only where a run is cut.
    for (const int planes : {1, 3}) {
        const Head head{.yMin = 1, .yMax = 0, .planes = planes, .bytesPerLine = 4};
        ExpectError(PcxOf256Colours(head, {}), ErrorKind::IndexOutOfRange, 10);
    }
    for (const int xMin : {1, 9}) {
        const Head head{.xMin = xMin, .xMax = 0, .planes = 3, .bytesPerLine = 4};
        ExpectError(PcxOf256Colours(head, {}), ErrorKind::IndexOutOfRange, 8);
    }
    ExpectError(PcxOf256Colours({.bytesPerLine = 0}, {}), ErrorKind::IndexOutOfRange, 66);
    ExpectError(PcxOf256Colours({.bytesPerLine = -4}, {}), ErrorKind::IndexOutOfRange, 66);
}

TEST(Pcx, MoreThan64MiBOfPixelsAreAnOverflow) {
    ExpectError(PcxOf256Colours({.xMax = 4095, .yMax = 4096, .bytesPerLine = 4096}, {}), ErrorKind::Overflow,
                8);
    ExpectError(PcxOf256Colours({.xMax = 0, .yMax = 4096, .bytesPerLine = 4096}, {}), ErrorKind::Overflow, 8);
    ExpectError(Pcx({.xMax = 4095, .yMax = 4096, .planes = 3, .bytesPerLine = 4096}, {}), ErrorKind::Overflow,
                8);
    const PcxResult largest =
        DecodePcx(Pcx({.xMax = 4095, .yMax = 4095, .planes = 3, .bytesPerLine = 4096}, {}));
    EXPECT_EQ(std::get<PcxPicture>(largest).picture.pixels.size(), 16777216U);
}

/// What came of a file, in a form to compare: the kind of error or refusal, else the picture.
struct Outcome {
    std::string kind;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels{};

    bool operator==(const Outcome &) const = default;
};

Outcome OutcomeOf(const Bytes &file) {
    try {
        const PcxResult result = DecodePcx(file);
        if (const auto *loaded = std::get_if<PcxPicture>(&result))
            return {"picture", loaded->picture.width, loaded->picture.height, loaded->picture.pixels};
        return {.kind = "refusal"};
    } catch (const Error &error) {
        return {.kind = std::string(ErrorKindText(error.Kind()))};
    }
}

Outcome LiteralOutcomeOf(const Bytes &file) {
    try {
        LiteralPcx literal(file);
        if (literal.decoded)
            return {"picture", literal.width, literal.height, std::move(literal.pixels)};
        return {.kind = "refusal"};
    } catch (const std::length_error &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::FileTooShort))};
    } catch (const std::out_of_range &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::IndexOutOfRange))};
    } catch (const std::overflow_error &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::Overflow))};
    }
}

TEST(Pcx, WithRandomDamageGivesWhatTheLiteralDecoderGives) {
    std::mt19937 random(5);
    const auto below = [&random](std::size_t end) { return random() % end; };
    Bytes data;
    for (int i = 0; i < 300; ++i)
        data.push_back(static_cast<std::uint8_t>(below(256)));
    const std::vector<Bytes> originals = {
        PcxOf256Colours({.xMax = 15, .yMax = 11, .bytesPerLine = 16}, data),
        PcxOf256Colours({.xMax = 16, .yMax = 11, .bytesPerLine = 18}, data),
        PcxOf256Colours({.xMax = 3, .yMax = 11, .bytesPerLine = 18}, data),
        Pcx({.xMax = 9, .yMax = 9, .planes = 3, .bytesPerLine = 10}, data),
        Pcx({.xMax = 99, .yMax = 9, .planes = 3, .bytesPerLine = 99}, data)};
    std::map<std::string, int> outcomes;
    for (int round = 0; round < 20000; ++round) {
        Bytes file = originals[below(originals.size())];
        for (std::size_t change = below(8); change > 0; --change)
            file[below(2) == 0 ? below(72) : below(file.size())] = static_cast<std::uint8_t>(below(256));
        if (below(8) == 0)
            file.resize(below(file.size()));
        // Runs of 0, and runs without their byte, at the end.
        if (below(4) == 0 && !file.empty())
            file.back() = static_cast<std::uint8_t>(0xC0 + below(3));
        const Outcome outcome = OutcomeOf(file);
        ASSERT_TRUE(outcome == LiteralOutcomeOf(file)) << round << ' ' << outcome.kind;
        ++outcomes[outcome.kind];
    }
    EXPECT_GT(outcomes["picture"], 1000);
    EXPECT_GT(outcomes["refusal"], 1000);
    EXPECT_GT(outcomes[std::string(ErrorKindText(ErrorKind::IndexOutOfRange))], 1000);
    EXPECT_GT(outcomes[std::string(ErrorKindText(ErrorKind::Overflow))], 10);
}

TEST(Pcx, OfAnAbsurdLengthIsAnOverflowAndNotRead) {
    const TemporaryFolder folder;
    const Bytes file = PcxOf256Colours(fourByTwo, {0xC4, 5, 0xC4, 6});
    const std::string path =
        folder.Make("BNWATER.PCX", {reinterpret_cast<const char *>(file.data()), file.size()});
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40);
    try {
        LoadPcx(folder.Path() + "BNWater.pcx");
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
        EXPECT_THAT(error.File(), HasSubstr("BNWater.pcx"));
        EXPECT_EQ(error.Found(), "1099511627776 bytes");
    }
}

TEST(Pcx, IsLoadedFromItsFileInAnyLetterCase) {
    const TemporaryFolder folder;
    const Bytes file = PcxOf256Colours(fourByTwo, {0xC4, 5, 0xC4, 6});
    folder.Make("BNWATER.PCX", {reinterpret_cast<const char *>(file.data()), file.size()});
    EXPECT_THAT(Entries(LoadPcx(folder.Path() + "BNWater.pcx")), ElementsAre(5, 5, 5, 5, 6, 6, 6, 6));
}

TEST(Pcx, AMissingFileIsAFileError) {
    const TemporaryFolder folder;
    try {
        LoadPcx(folder.Path() + "BNWater.pcx");
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
        EXPECT_THAT(error.File(), HasSubstr("BNWater.pcx"));
    }
}

}  // namespace
}  // namespace vtr
