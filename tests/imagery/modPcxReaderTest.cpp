#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <random>

#include "ErrorThrownBy.h"
#include "PcxFiles.h"
#include "PlainPcx.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

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
    // In one plane the lines give the width. Xmax counts only where a run is cut.
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

TEST(Pcx, AFileOfMoreThan128MiBIsAnOverflowBeforeItIsRead) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("BNGrass.pcx", "");
    std::filesystem::resize_file(path, 134217728);
    EXPECT_TRUE(std::holds_alternative<PcxRefusal>(LoadPcx(path)));
    std::filesystem::resize_file(path, 134217729);
    const Error error = ErrorThrownBy([&path] { LoadPcx(path); });
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Found(), "134217729 bytes");
}

/// The result of decoding a file, for comparison: the kind of error or refusal, or else the picture.
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

Outcome PlainOutcomeOf(const Bytes &file) {
    try {
        PlainPcx plain(file);
        if (plain.decoded)
            return {"picture", plain.width, plain.height, std::move(plain.pixels)};
        return {.kind = "refusal"};
    } catch (const std::length_error &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::FileTooShort))};
    } catch (const std::out_of_range &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::IndexOutOfRange))};
    } catch (const std::overflow_error &) {
        return {.kind = std::string(ErrorKindText(ErrorKind::Overflow))};
    }
}

TEST(Pcx, WithRandomDamageGivesWhatThePlainDecoderGives) {
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
        // At the end, runs of length 0 and runs without their byte.
        if (below(4) == 0 && !file.empty())
            file.back() = static_cast<std::uint8_t>(0xC0 + below(3));
        const Outcome outcome = OutcomeOf(file);
        ASSERT_TRUE(outcome == PlainOutcomeOf(file)) << round << ' ' << outcome.kind;
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
