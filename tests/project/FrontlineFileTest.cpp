#include <gtest/gtest.h>

#include <memory>

#include "FrontlineFile.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using PointBytes = std::array<std::uint8_t, 20>;
using FrontlineTable = std::array<Frontline, frontlineTotal>;

// Fine parts and bytes that no writer of ours makes.
constexpr PointBytes pointBytesByHand{9,    8,    0x12, 0xFF,  // 0: x, -238 quarter tiles
                                      7,    6,    0xA0, 0xE7,  // 4: y, -6240
                                      0xB1, 0xB2, 0xB3, 0xB4, 0xB5, 0xB6, 0xB7, 0xB8,  // 8
                                      1,    0xC1, 0xC2, 0xC3};                         // 16: flag
constexpr FrontlinePoint pointByHand{.x = 100, .y = 200, .on_map = 65535};
constexpr PointBytes writtenByHand{0,    0,    0x10, 0xFF, 0,    0,    0xA0, 0xE7, 0xFF, 0xFF,
                                   0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 1,    0,    0,    0};

/// bytes from first on, size of them.
Bytes Part(const Bytes &bytes, std::size_t first, std::size_t size) {
    const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(first);
    return {start, start + static_cast<std::ptrdiff_t>(size)};
}

Bytes RepeatedPoint(std::size_t count) {
    Bytes bytes(20 * count);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = writtenByHand[i % 20];
    return bytes;
}

class FrontlineFile : public testing::Test {
  protected:
    const std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    FrontlineTable &table = campaign->FrontlineTable;
    RecordingListener listener;

    FrontlineFile() {
        for (std::size_t slot = 0; slot < frontlineTotal; ++slot)
            SetPoints(slot, 0);
    }

    void SetPoints(std::size_t slot, std::size_t count) {
        table[slot].points.fill(pointByHand);
        EndFrontline(table[slot], count);
    }

    void Decode(const Bytes &bytes) { DecodeFrontlines(bytes, "FRNTLINE.DAT", *campaign, listener); }

    Bytes RandomFile() {
        std::mt19937 random(20);
        FillWithRandomLines(*campaign, random);
        EndLinesAtRandom(*campaign, random);
        SetPoints(19, 7);  // not full: that would make the file longer than it is read
        return EncodeFrontlines(*campaign);
    }
};

TEST_F(FrontlineFile, ReadsARecordByteByByte) {
    FrontlinePoint point;
    DecodeFrontlinePoint(pointBytesByHand, point);
    EXPECT_EQ(point, pointByHand);
}

TEST_F(FrontlineFile, AFlagOf0ClearsAndOf1SetsOnMapAndAnyOtherLeavesIt) {
    PointBytes record = pointBytesByHand;
    for (const int flag : {0, 1, 2, 128, 254, 255})
        for (const std::uint16_t before : std::array<std::uint16_t, 3>{0, 65535, 77}) {
            record[16] = static_cast<std::uint8_t>(flag);
            FrontlinePoint point{.on_map = before};
            DecodeFrontlinePoint(record, point);
            EXPECT_EQ(point.on_map, flag == 0 ? 0 : flag == 1 ? 65535 : before) << flag;
        }
}

TEST_F(FrontlineFile, WritesARecordByteByByteWithoutAFinePart) {
    PointBytes record{};
    EncodeFrontlinePoint(pointByHand, record);
    EXPECT_EQ(record, writtenByHand);

    record = pointBytesByHand;
    EncodeFrontlinePoint({.x = 639, .y = 0, .on_map = 1}, record);
    EXPECT_EQ(record, (PointBytes{0,    0,    0x7C, 0x07, 0,    0,    0x80, 0xE4, 0xFF, 0xFF,
                                  0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0,    0xC1, 0xC2, 0xC3}));
}

TEST_F(FrontlineFile, ASlotWithNoPointsIsWrittenAs600ZeroBytesAndReadsBackWithNone) {
    SetPoints(1, 1);
    const Bytes file = EncodeFrontlines(*campaign);
    ASSERT_EQ(file.size(), 12000U);
    EXPECT_EQ(Part(file, 0, 600), Bytes(600));
    EXPECT_EQ(Part(file, 1200, 10800), Bytes(10800));
    table = {};
    Decode(file);
    EXPECT_EQ(table[0].point_count(), 0);
    EXPECT_EQ(table[1].point_count(), 1);
    EXPECT_EQ(table[19].point_count(), 0);
}

TEST_F(FrontlineFile, ASlotWith3PointsIs60BytesOfPoints16Of255And524Zeros) {
    SetPoints(4, 3);
    const Bytes file = EncodeFrontlines(*campaign);
    ASSERT_EQ(file.size(), 12000U);
    EXPECT_EQ(Part(file, 2400, 60), RepeatedPoint(3));
    EXPECT_EQ(Part(file, 2460, 16), Bytes(16, 255));
    EXPECT_EQ(Part(file, 2476, 524), Bytes(524));
    table = {};
    Decode(file);
    EXPECT_EQ(table[4].point_count(), 3);
    EXPECT_EQ(table[4].points[2], pointByHand);
    EXPECT_EQ(table[4].points[3], (FrontlinePoint{159, 1759, 0}));
    EXPECT_EQ(table[4].points[4], (FrontlinePoint{160, 1760, 0}));
}

TEST_F(FrontlineFile, ASlotWith29PointsIs580BytesOfPoints16Of255And4Zeros) {
    SetPoints(0, 29);
    const Bytes file = EncodeFrontlines(*campaign);
    ASSERT_EQ(file.size(), 12000U);
    EXPECT_EQ(Part(file, 0, 580), RepeatedPoint(29));
    EXPECT_EQ(Part(file, 580, 16), Bytes(16, 255));
    EXPECT_EQ(Part(file, 596, 4), Bytes(4));
}

TEST_F(FrontlineFile, ASlotWith30PointsIs616BytesAndShiftsEveryLaterSlotBy16) {
    SetPoints(0, 30);
    SetPoints(1, 2);
    const Bytes file = EncodeFrontlines(*campaign);
    ASSERT_EQ(file.size(), 12016U);
    EXPECT_EQ(Part(file, 0, 600), RepeatedPoint(30));
    EXPECT_EQ(Part(file, 600, 16), Bytes(16, 255));
    EXPECT_EQ(Part(file, 616, 40), RepeatedPoint(2));
    EXPECT_EQ(Part(file, 656, 16), Bytes(16, 255));
    EXPECT_EQ(Part(file, 672, 11344), Bytes(11344));
}

TEST_F(FrontlineFile, AfterAFullSlotTheNextReadsItsMarkerAsItsFirstPoint) {
    SetPoints(0, 30);
    Decode(EncodeFrontlines(*campaign));
    EXPECT_EQ(table[0].point_count(), 30);
    EXPECT_EQ(table[1].points[0], (FrontlinePoint{159, 1759, 0}));
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(FrontlineFile, TwentyFullSlotsAre12320Bytes) {
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot)
        SetPoints(slot, 30);
    const Bytes file = EncodeFrontlines(*campaign);
    ASSERT_EQ(file.size(), 12320U);
    EXPECT_EQ(Part(file, 19 * 616, 600), RepeatedPoint(30));
    EXPECT_EQ(Part(file, 19 * 616 + 600, 16), Bytes(16, 255));
}

TEST_F(FrontlineFile, WritesThePointsFromTheFirstOnWhicheverOfThemAreReal) {
    SetPoints(0, 3);
    table[0].points[1].y = 1759;  // so that two are real: points 0 and 2
    const Bytes file = EncodeFrontlines(*campaign);
    EXPECT_EQ(Part(file, 0, 20), RepeatedPoint(1));
    EXPECT_EQ(Part(file, 20, 8), (Bytes{0, 0, 0x10, 0xFF, 0, 0, 0xFC, 0xFF}));
    EXPECT_EQ(Part(file, 40, 16), Bytes(16, 255));
}

TEST_F(FrontlineFile, OnMapOfAFlagByteThatMeansNothingStaysWhatTheTableHeld) {
    Bytes file = EncodeFrontlines(*campaign);
    file[16] = 2;
    file[36] = 255;
    table[0].points[0].on_map = 65535;
    table[0].points[1].on_map = 0;
    table[0].points[2].on_map = 65535;
    Decode(file);
    EXPECT_EQ(table[0].points[0].on_map, 65535);
    EXPECT_EQ(table[0].points[1].on_map, 0);
    EXPECT_EQ(table[0].points[2].on_map, 0);
}

TEST_F(FrontlineFile, RaisesTheProgressBy8OverAllPoints) {
    Decode(RandomFile());
    EXPECT_EQ(listener.steps, std::vector<double>(600, 1.0 / 75));
}

TEST_F(FrontlineFile, Of1000RandomTablesIsReadAsItWasWrittenAndWrittenAgainTheSame) {
    std::mt19937 random(1);
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomLines(*campaign, random);
        EndLinesAtRandom(*campaign, random);
        const FrontlineTable before = table;
        const Bytes file = EncodeFrontlines(*campaign);
        table = {};
        Decode(file);
        ASSERT_TRUE(table == before) << run;
        ASSERT_EQ(EncodeFrontlines(*campaign), file) << run;
    }
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(FrontlineFile, ChangingOneFieldChangesOnlyItsBytes) {
    SetPoints(3, 5);
    const Bytes before = EncodeFrontlines(*campaign);
    FrontlinePoint &point = table[3].points[4];
    point.x = 639;
    ExpectChangeOnlyWithin(before, EncodeFrontlines(*campaign), 1882, 2);
    point = pointByHand;
    point.y = 319;
    ExpectChangeOnlyWithin(before, EncodeFrontlines(*campaign), 1886, 2);
    point = pointByHand;
    point.on_map = 0;
    ExpectChangeOnlyWithin(before, EncodeFrontlines(*campaign), 1896, 1);
}

TEST_F(FrontlineFile, CutAtAnyLengthReadsTheMissingBytesAsZeroAndIsReportedOnce) {
    const auto decode = [](const Bytes &bytes, Campaign &into, LoadListener &told) {
        into.FrontlineTable = {};
        DecodeFrontlines(bytes, "FRNTLINE.DAT", into, told);
    };
    ExpectMissingBytesToCountAsZero(RandomFile(), decode,
                                    [](const Campaign &from) { return from.FrontlineTable; });
}

TEST_F(FrontlineFile, LongerThan12000BytesIsReadAsFarAsThat) {
    Bytes file = RandomFile();
    const FrontlineTable before = table;
    file.resize(file.size() + 100, 0xEE);
    Decode(file);
    EXPECT_TRUE(table == before);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(FrontlineFile, RandomDamageIsSurvived) {
    ExpectDamageToBeSurvived(RandomFile(), [this](const Bytes &bytes) {
        Decode(bytes);
        EncodeFrontlines(*campaign);
    });
}

TEST_F(FrontlineFile, APositionThatLeaves16BitsIsAnOverflowNamedByItsPlace) {
    Bytes file(12000);
    file[1200 + 20 * 7 + 6] = 0xFF;
    file[1200 + 20 * 7 + 7] = 0x7F;
    const Error read = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(read.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(read.File(), "FRNTLINE.DAT");
    EXPECT_EQ(read.PlaceText(), "offset 1344, frontline 2, point 7");

    SetPoints(2, 8);
    table[2].points[7].x = -9000;
    const Error written = ErrorThrownBy([&] { EncodeFrontlines(*campaign, "OUT.DAT"); });
    EXPECT_EQ(written.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(written.File(), "OUT.DAT");
    EXPECT_EQ(written.PlaceText(), "offset 1340, frontline 2, point 7");
}

TEST_F(FrontlineFile, OnDiskIsReadAsItWasWritten) {
    const TemporaryFolder folder;
    const Bytes bytes = RandomFile();
    const FrontlineTable before = table;
    WriteFrontlines(folder.Path() + "F.DAT", *campaign);
    EXPECT_EQ(folder.Content("F.DAT"), std::string(bytes.begin(), bytes.end()));
    table = {};
    ReadFrontlines(folder.Path() + "F.DAT", *campaign, listener);
    EXPECT_TRUE(table == before);
}

TEST_F(FrontlineFile, WithAnEmptyPathIsNeitherReadNorWritten) {
    SetPoints(0, 30);
    ReadFrontlines("", *campaign, listener);
    EXPECT_EQ(table[0].point_count(), 30);
    EXPECT_TRUE(listener.steps.empty());
    table[0].points[0].x = 9000;  // could not be encoded
    EXPECT_NO_THROW(WriteFrontlines("", *campaign));
}

TEST_F(FrontlineFile, ThatIsMissingIsAnError) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "none.dat";
    EXPECT_EQ(ErrorThrownBy([&] { ReadFrontlines(path, *campaign, listener); }).Kind(),
              ErrorKind::FileMissing);
}

}  // namespace
}  // namespace vtr
