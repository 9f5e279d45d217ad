#include <gtest/gtest.h>

#include <memory>

#include "RailwayFile.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using LineBytes = std::array<std::uint8_t, 24>;

// Bytes that no writer of ours makes stand where the record has no meaning.
constexpr LineBytes lineBytesByHand{0x00, 0x80, 0x11, 0xFF,  // 0: x1, -239.5 quarter tiles
                                    0x00, 0x00, 0x7C, 0x07,  // 4: x2, 1916
                                    0x00, 0x00, 0x80, 0xE4,  // 8: y1, -7040
                                    0xFF, 0xFF, 0xA3, 0xE7,  // 12: y2, -6237 and nearly one
                                    0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6, 0xA7, 0xA8};  // 16
constexpr RailwayLine lineByHand{
    .x1 = 100, .x2 = 639, .y1 = 0, .y2 = 200, .fineOffsets = {1537.5, 0, 0, 4099.984359741211}};

/// Pixel 0 on both axes.
constexpr LineBytes unusedRecord{0, 0, 0x80, 0xFD, 0, 0, 0x80, 0xFD, 0, 0, 0x80, 0xE4, 0, 0, 0x80, 0xE4};

/// A file of lines in use but for those whose indices are given.
Bytes FileWithUnusedLines(const std::vector<std::size_t> &unused) {
    Bytes file(4 + 24 * railwayLineTotal);
    for (const std::size_t i : unused)
        std::ranges::copy(unusedRecord, file.begin() + static_cast<std::ptrdiff_t>(4 + 24 * i));
    return file;
}

std::vector<std::size_t> IndicesFrom(std::size_t first) {
    std::vector<std::size_t> indices;
    for (std::size_t i = first; i < railwayLineTotal; ++i)
        indices.push_back(i);
    return indices;
}

class RailwayFile : public testing::Test {
  protected:
    const std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    RecordingListener listener;

    void Decode(const Bytes &bytes) { DecodeRailway(bytes, "VTR_RRD.DAT", *campaign, listener); }

    std::int16_t CountOf(const std::vector<std::size_t> &unused, std::int16_t before = 0) {
        campaign->RailwayLineCount = before;
        Decode(FileWithUnusedLines(unused));
        return campaign->RailwayLineCount;
    }

    Bytes RandomFile() {
        std::mt19937 random(894);
        FillWithRandomLines(*campaign, random);
        EndLinesAtRandom(*campaign, random);
        return EncodeRailway(*campaign);
    }
};

TEST_F(RailwayFile, ReadsARecordByteByByte) {
    RailwayLine line;
    DecodeRailwayLine(lineBytesByHand, line);
    EXPECT_EQ(line, lineByHand);
}

TEST_F(RailwayFile, WritesARecordByteByByteAndLeavesTheOtherBytesOfTheSpan) {
    LineBytes record = lineBytesByHand;
    EncodeRailwayLine(lineByHand, record);
    EXPECT_EQ(record, lineBytesByHand);

    LineBytes expected = lineBytesByHand;
    std::fill(expected.begin() + 16, expected.end(), std::uint8_t{0});
    LineBytes fresh{};
    EncodeRailwayLine(lineByHand, fresh);
    EXPECT_EQ(fresh, expected);
}

TEST_F(RailwayFile, StandsInTheFileWithAHeaderOf894) {
    campaign->RailwayTable[893] = lineByHand;
    const Bytes file = EncodeRailway(*campaign);
    ASSERT_EQ(file.size(), 21460U);
    EXPECT_EQ((Bytes(file.begin(), file.begin() + 4)), (Bytes{126, 3, 0, 0}));
    EXPECT_EQ((Bytes(file.begin() + 4, file.begin() + 28)), Bytes(unusedRecord.begin(), unusedRecord.end()));
    Bytes last(lineBytesByHand.begin(), lineBytesByHand.end());
    std::fill(last.begin() + 16, last.end(), std::uint8_t{0});
    EXPECT_EQ((Bytes(file.begin() + 21436, file.end())), last);
}

TEST_F(RailwayFile, ALineOfZeroBytesReadsAsPixels160And1760AndIsNotUnused) {
    Decode(Bytes(21460));
    for (const RailwayLine &line : campaign->RailwayTable)
        ASSERT_EQ(line, (RailwayLine{.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760}));
    EXPECT_EQ(campaign->RailwayLineCount, 0);
}

TEST_F(RailwayFile, OnlyALineOfFourZeroPixelsIsUnused) {
    Bytes file = FileWithUnusedLines({0, 1, 2, 3, 20, 21});
    // One pixel each of lines 0 to 3 is 1.
    for (const std::size_t changed : std::array<std::size_t, 4>{4 + 2, 4 + 24 + 6, 4 + 48 + 10, 4 + 72 + 14})
        file[changed] = 0x84;
    Decode(file);
    EXPECT_EQ(campaign->RailwayTable[2], (RailwayLine{.y1 = 1}));
    EXPECT_EQ(campaign->RailwayLineCount, 20);
}

TEST_F(RailwayFile, TheSecondUnusedLinesIndexMinus1IsTheNumberOfLines) {
    EXPECT_EQ(CountOf(IndicesFrom(850)), 850);
    EXPECT_EQ(CountOf(IndicesFrom(892)), 892);
    EXPECT_EQ(CountOf({5, 100, 200}), 99);
}

TEST_F(RailwayFile, FewerThanTwoUnusedLinesLeaveTheCountAsItIs) {
    EXPECT_EQ(CountOf({}), 0);
    EXPECT_EQ(CountOf({893}), 0);
    EXPECT_EQ(CountOf({7}, 12), 12);
}

TEST_F(RailwayFile, ACountThatIsNot0Stays) {
    EXPECT_EQ(CountOf(IndicesFrom(850), 12), 12);
    EXPECT_EQ(CountOf(IndicesFrom(850), -1), -1);
}

TEST_F(RailwayFile, LinesThatAreUnusedFromTheFirstOnMakeTheThirdOfThemCount) {
    EXPECT_EQ(CountOf(IndicesFrom(0)), 1);
    EXPECT_EQ(CountOf({0, 1, 9}), 8);
    EXPECT_EQ(CountOf({0, 1}), 0);
}

TEST_F(RailwayFile, RaisesTheProgressBy8OverAllLines) {
    Decode(RandomFile());
    EXPECT_EQ(listener.steps, std::vector<double>(894, 8.0 / 894));
}

TEST_F(RailwayFile, Of1000RandomTablesIsReadAsItWasWrittenAndWrittenAgainTheSame) {
    std::mt19937 random(1);
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomLines(*campaign, random);
        EndLinesAtRandom(*campaign, random);
        const auto before = campaign->RailwayTable;
        const Bytes file = EncodeRailway(*campaign);
        campaign->RailwayTable.fill({});
        Decode(file);
        ASSERT_TRUE(campaign->RailwayTable == before) << run;
        ASSERT_EQ(EncodeRailway(*campaign), file) << run;
    }
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(RailwayFile, ChangingOneFieldChangesOnlyItsPosition) {
    const Bytes before = RandomFile();
    const RailwayLine line = campaign->RailwayTable[17];
    const std::array<std::int16_t RailwayLine::*, 4> fields{&RailwayLine::x1, &RailwayLine::x2,
                                                            &RailwayLine::y1, &RailwayLine::y2};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t position = 4 + 24 * 17 + 4 * i;
        campaign->RailwayTable[17].*fields[i] = static_cast<std::int16_t>(line.*fields[i] == 0 ? 1 : 0);
        ExpectChangeOnlyWithin(before, EncodeRailway(*campaign), position + 2, 2);
        campaign->RailwayTable[17] = line;

        campaign->RailwayTable[17].fineOffsets[i] = line.fineOffsets[i] == 2000 ? 1000 : 2000;
        ExpectChangeOnlyWithin(before, EncodeRailway(*campaign), position, 4);
        campaign->RailwayTable[17] = line;
    }
    EXPECT_EQ(EncodeRailway(*campaign), before);
}

TEST_F(RailwayFile, CutAtAnyLengthReadsTheMissingBytesAsZeroAndIsReportedOnce) {
    // Few lines have fine offsets: writing numbers as text would take most of the test's time.
    Bytes file = FileWithUnusedLines(IndicesFrom(880));
    for (std::size_t i = 0; i < 880; ++i) {
        LineBytes record = unusedRecord;
        record[0] = i % 50 == 0 ? 77 : 0;
        record[6] = record[10] = record[14] = static_cast<std::uint8_t>(i % 100);
        std::ranges::copy(record, file.begin() + static_cast<std::ptrdiff_t>(4 + 24 * i));
    }
    // The slow debug build takes every seventh length, which still cuts records at each of their bytes.
#ifdef NDEBUG
    constexpr std::size_t step = 1;
#else
    constexpr std::size_t step = 7;
#endif
    for (std::size_t length = 0; length <= file.size(); length += length + step > file.size() ? 1 : step) {
        listener = {};
        campaign->RailwayLineCount = 0;
        Decode(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)));
        const std::size_t cutLine = length < 4 ? 0 : (length - 4) / 24;
        const std::size_t from = cutLine < 2 ? 0 : cutLine - 2;
        for (std::size_t i = from; i < std::min(cutLine + 3, railwayLineTotal); ++i) {
            LineBytes record{};
            for (std::size_t b = 0; b < 24; ++b)
                record[b] = 4 + 24 * i + b < length ? file[4 + 24 * i + b] : std::uint8_t{0};
            RailwayLine line;
            DecodeRailwayLine(record, line);
            ASSERT_EQ(campaign->RailwayTable[i], line) << length << ", " << i;
        }
        ASSERT_EQ(campaign->RailwayLineCount, length < 4 + 24 * 881 + 16 ? 0 : 880) << length;
        ASSERT_EQ(listener.steps.size(), railwayLineTotal);
        ASSERT_EQ(listener.shortFiles.size(), length < 21460 ? 1U : 0U) << length;
        for (const ShortFile &report : listener.shortFiles) {
            ASSERT_EQ(report.path, "VTR_RRD.DAT");
            ASSERT_EQ(report.found, length);
            ASSERT_EQ(report.expected, 21460U);
        }
    }
}

TEST_F(RailwayFile, LongerThanItsLinesIsReadAsFarAsTheyGo) {
    Bytes file = RandomFile();
    const auto lines = campaign->RailwayTable;
    file.resize(file.size() + 100, 0xEE);
    Decode(file);
    EXPECT_TRUE(campaign->RailwayTable == lines);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(RailwayFile, RandomDamageIsSurvived) {
    ExpectDamageToBeSurvived(RandomFile(), [this](const Bytes &bytes) {
        Decode(bytes);
        EncodeRailway(*campaign);
    });
}

TEST_F(RailwayFile, APositionThatLeaves16BitsIsAnOverflowNamedByItsPlace) {
    Bytes file(21460);
    file[4 + 24 * 5 + 14] = 0xFF;  // y2 of line 5: 32767
    file[4 + 24 * 5 + 15] = 0x7F;
    const Error read = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(read.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(read.File(), "VTR_RRD.DAT");
    EXPECT_EQ(read.PlaceText(), "offset 136, railway line 5");

    campaign->RailwayTable.fill({});
    campaign->RailwayTable[893].x2 = 9000;
    const Error written = ErrorThrownBy([&] { EncodeRailway(*campaign, "OUT.DAT"); });
    EXPECT_EQ(written.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(written.File(), "OUT.DAT");
    EXPECT_EQ(written.PlaceText(), "offset 21440, railway line 893");
}

TEST_F(RailwayFile, OnDiskIsReadAsItWasWritten) {
    const TemporaryFolder folder;
    const Bytes bytes = RandomFile();
    const auto lines = campaign->RailwayTable;
    WriteRailway(folder.Path() + "VTR_RRD.DAT", *campaign);
    EXPECT_EQ(folder.Content("VTR_RRD.DAT"), std::string(bytes.begin(), bytes.end()));
    campaign->RailwayTable.fill({});
    ReadRailway(folder.Path() + "VTR_RRD.DAT", *campaign, listener);
    EXPECT_TRUE(campaign->RailwayTable == lines);
}

TEST_F(RailwayFile, WithAnEmptyPathIsNeitherReadNorWritten) {
    campaign->RailwayTable[3] = lineByHand;
    ReadRailway("", *campaign, listener);
    EXPECT_EQ(campaign->RailwayTable[3], lineByHand);
    EXPECT_TRUE(listener.steps.empty());
    campaign->RailwayTable[3].x1 = 9000;  // could not be encoded
    EXPECT_NO_THROW(WriteRailway("", *campaign));
}

TEST_F(RailwayFile, ThatIsMissingIsAnError) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "none.dat";
    EXPECT_EQ(ErrorThrownBy([&] { ReadRailway(path, *campaign, listener); }).Kind(), ErrorKind::FileMissing);
}

}  // namespace
}  // namespace vtr
