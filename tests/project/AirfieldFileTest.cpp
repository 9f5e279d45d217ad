#include <gmock/gmock.h>

#include <memory>

#include "AirfieldFile.h"
#include "AirfieldLists.h"
#include "RandomCampaign.h"
#include "ReaderTesting.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using AirfieldBytes = std::array<std::uint8_t, 44>;
using AirfieldTable = std::array<AirfieldRecord, airfieldTotal>;

class AirfieldFile : public testing::Test {
  protected:
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    RecordingListener listener;

    void Decode(const Bytes &bytes) { DecodeAirfields(bytes, "AIRFIELD.DAT", *campaign, listener); }

    Bytes RandomFile() {
        std::mt19937 random(162);
        FillWithRandomTables(*campaign, random);
        return EncodeAirfields(*campaign);
    }
};

// Bytes that no writer of ours makes stand where the record has no meaning.
constexpr AirfieldBytes airfieldBytesByHand{0x11, 0x12, 0x13, 7,  // 0: index_byte at 3
                                            0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28,  // 4
                                            0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F, 0x30,  // 12
                                            255,  255,  10,   0,    1,    0,    255,  255,   // 20: models
                                            0,    2,    128,  0,    29,   0,    9,    0,     // 28: year slots
                                            0x34, 0x12,                           // 36: airfield_extra_word
                                            0x41, 0x42, 0x43, 0x44, 6,    0x51};  // 38: country at 42

TEST_F(AirfieldFile, ReadsARecordByteByByte) {
    AirfieldRecord airfield;
    airfield.base_1940 = 3;
    airfield.base_1945 = 3;
    airfield.spare = 77;
    DecodeAirfield(airfieldBytesByHand, airfield);
    EXPECT_EQ(airfield.index_byte, 7);
    EXPECT_EQ(airfield.base_1940, 0);
    EXPECT_EQ(airfield.base_1943, 10);
    EXPECT_EQ(airfield.base_1944, 1);
    EXPECT_EQ(airfield.base_1945, 0);
    EXPECT_EQ(airfield.spare, 77);
    EXPECT_EQ(airfield.yearSlots[0], (AirfieldYearSlot{.allied_no_plane_a = 65535}));
    EXPECT_EQ(airfield.yearSlots[1], (AirfieldYearSlot{.german_no_plane = 65535}));
    EXPECT_EQ(airfield.yearSlots[2], (AirfieldYearSlot{.aircraft = 13, .german = 65535}));
    EXPECT_EQ(airfield.yearSlots[3], (AirfieldYearSlot{.aircraft = 9}));
    EXPECT_EQ(airfield.airfield_extra_word, 0x1234);
    EXPECT_EQ(airfield.country, 6);
}

TEST_F(AirfieldFile, CarriesTheExtraWordThroughEvenWhenItIsAll255) {
    AirfieldBytes record{};
    record[36] = 255;
    record[37] = 255;
    AirfieldRecord airfield;
    DecodeAirfield(record, airfield);
    EXPECT_EQ(airfield.airfield_extra_word, 65535);
    AirfieldBytes written{};
    EncodeAirfield(airfield, written);
    EXPECT_EQ(written[36], 255);
    EXPECT_EQ(written[37], 255);
}

TEST_F(AirfieldFile, WritesARecordByteByByteAndLeavesTheOtherBytesOfTheSpan) {
    AirfieldRecord airfield;
    DecodeAirfield(airfieldBytesByHand, airfield);
    AirfieldBytes same = airfieldBytesByHand;
    EncodeAirfield(airfield, same);
    EXPECT_EQ(same, airfieldBytesByHand);

    AirfieldBytes expected = airfieldBytesByHand;
    for (const std::size_t meaningless : std::initializer_list<std::size_t>{
             0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 38, 39, 40, 41, 43})
        expected[meaningless] = 0;
    AirfieldBytes fresh{};
    EncodeAirfield(airfield, fresh);
    EXPECT_EQ(fresh, expected);
}

TEST_F(AirfieldFile, StandsInTheFileWithAHeaderOf162) {
    DecodeAirfield(airfieldBytesByHand, campaign->AirfieldTable[161]);
    const Bytes file = EncodeAirfields(*campaign);
    ASSERT_EQ(file.size(), 7132U);
    EXPECT_EQ((Bytes(file.begin(), file.begin() + 4)), (Bytes{162, 0, 0, 0}));
    EXPECT_EQ(file[4 + 44 * 161 + 3], 7);
    EXPECT_EQ(file[4 + 44 * 161 + 42], 6);

    Bytes other = file;
    std::fill_n(other.begin(), 4, std::uint8_t{99});  // the header is not looked at
    const AirfieldTable before = campaign->AirfieldTable;
    campaign->AirfieldTable = {};
    Decode(other);
    EXPECT_EQ(campaign->AirfieldTable, before);
}

TEST_F(AirfieldFile, Base1940Of0IsWrittenBackAs255And255) {
    const Bytes file = EncodeAirfields(*campaign);
    EXPECT_EQ(file[4 + 20], 255);
    EXPECT_EQ(file[4 + 21], 255);
    campaign->AirfieldTable[0].base_1940 = 9;
    Decode(file);
    EXPECT_EQ(campaign->AirfieldTable[0].base_1940, 0);
}

TEST_F(AirfieldFile, ATwoByteFieldOf255And255ReadsAs0) {
    Bytes file(7132, 0);
    for (const std::size_t field : std::initializer_list<std::size_t>{20, 22, 24, 26, 28, 30, 32, 34})
        file[4 + field] = file[4 + field + 1] = 255;
    Decode(file);
    EXPECT_EQ(campaign->AirfieldTable[0], AirfieldRecord{});
}

TEST_F(AirfieldFile, AModelIndexAbove255IsAnOverflowThatNamesItsPlace) {
    Bytes file(7132, 0);
    file[4 + 44 * 3 + 25] = 1;
    const Error error = ErrorThrownBy([&] { Decode(file); });
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), "AIRFIELD.DAT");
    EXPECT_EQ(error.PlaceText(), "offset 160, airfield 3");
    EXPECT_EQ(error.Found(), "256");
}

TEST_F(AirfieldFile, AnAircraftThatLeavesItsByteIsAnOverflowThatNamesItsPlace) {
    campaign->AirfieldTable[161].yearSlots[3].aircraft = 256;
    const Error error = ErrorThrownBy([&] { EncodeAirfields(*campaign, "A.DAT"); });
    EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(error.File(), "A.DAT");
    EXPECT_EQ(error.PlaceText(), "offset 7122, airfield 161");
}

TEST_F(AirfieldFile, AChangedFieldChangesOnlyItsOwnBytes) {
    const Bytes before = RandomFile();
    AirfieldRecord &airfield = campaign->AirfieldTable[100];
    const AirfieldRecord kept = airfield;
    const auto expectOnly = [&](std::size_t offset, std::size_t size) {
        ExpectChangeOnlyWithin(before, EncodeAirfields(*campaign), 4 + 44 * 100 + offset, size);
        airfield = kept;
    };
    airfield.index_byte ^= 1;
    expectOnly(3, 1);
    airfield.base_1940 = kept.base_1940 == 0 ? 1 : 0;
    expectOnly(20, 2);
    airfield.base_1943 = kept.base_1943 == 0 ? 1 : 0;
    expectOnly(22, 2);
    airfield.base_1944 = kept.base_1944 == 0 ? 1 : 0;
    expectOnly(24, 2);
    airfield.base_1945 = kept.base_1945 == 0 ? 1 : 0;
    expectOnly(26, 2);
    for (std::size_t year = 0; year < 4; ++year) {
        airfield.yearSlots[year] = YearSlotOfEntry(kept.yearSlots[year] == YearSlotOfEntry(30) ? 31 : 30);
        expectOnly(28 + 2 * year, 2);
    }
    airfield.airfield_extra_word ^= 0x0101;
    expectOnly(36, 2);
    airfield.country = kept.country == 6 ? 0 : 6;
    expectOnly(42, 1);
    airfield.spare ^= 1;
    EXPECT_EQ(EncodeAirfields(*campaign), before);
}

TEST_F(AirfieldFile, RaisesTheProgressBy8In162ForEveryRecord) {
    Decode(RandomFile());
    EXPECT_EQ(listener.steps, std::vector<double>(162, 8.0 / 162));
}

TEST_F(AirfieldFile, MissingBytesCountAsZeroAtEveryLengthAndTheShortFileIsReported) {
    const auto decode = [](const Bytes &bytes, Campaign &into, LoadListener &to) {
        DecodeAirfields(bytes, "A.DAT", into, to);
    };
    ExpectMissingBytesToCountAsZero(RandomFile(), decode,
                                    [](const Campaign &from) { return std::tie(from.AirfieldTable); });
}

TEST_F(AirfieldFile, BytesBeyondTheLastRecordAreLeftAlone) {
    Bytes file = RandomFile();
    const AirfieldTable before = campaign->AirfieldTable;
    file.resize(9000, 255);
    Decode(file);
    EXPECT_EQ(campaign->AirfieldTable, before);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(AirfieldFile, DamageNeverDoesMoreThanThrowAnErrorWithItsPlace) {
    ExpectDamageToBeSurvived(RandomFile(), [this](const Bytes &bytes) { Decode(bytes); });
}

TEST_F(AirfieldFile, AThousandRandomTablesComeBackAndAreWrittenAsTheSameBytes) {
    std::mt19937 random(40);
    for (int run = 0; run < 1000; ++run) {
        FillWithRandomTables(*campaign, random);
        const AirfieldTable before = campaign->AirfieldTable;
        const Bytes written = EncodeAirfields(*campaign);
        campaign->AirfieldTable = {};
        Decode(written);
        ASSERT_EQ(campaign->AirfieldTable, before);
        ASSERT_EQ(EncodeAirfields(*campaign), written);
    }
}

TEST_F(AirfieldFile, AnEmptyPathReadsAndWritesNothing) {
    RandomFile();
    const AirfieldTable before = campaign->AirfieldTable;
    ReadAirfields("", *campaign, listener);
    WriteAirfields("", *campaign);
    EXPECT_EQ(campaign->AirfieldTable, before);
    EXPECT_TRUE(listener.steps.empty());
}

TEST_F(AirfieldFile, IsReadFromAndWrittenToItsPath) {
    const TemporaryFolder folder;
    const Bytes file = RandomFile();
    const AirfieldTable before = campaign->AirfieldTable;
    WriteAirfields(folder.Path() + "AIRFIELD.DAT", *campaign);
    EXPECT_EQ(folder.Content("AIRFIELD.DAT"), std::string(file.begin(), file.end()));
    campaign->AirfieldTable = {};
    ReadAirfields(folder.Path() + "airfield.dat", *campaign, listener);
    EXPECT_EQ(campaign->AirfieldTable, before);
    EXPECT_EQ(ErrorThrownBy([&] { ReadAirfields(folder.Path() + "none.dat", *campaign, listener); }).Kind(),
              ErrorKind::FileMissing);
}

}  // namespace
}  // namespace vtr
