#include <gtest/gtest.h>

#include "AirfieldLists.h"

namespace vtr {
namespace {

bool operator==(const AirfieldYearSlot &slot, const std::array<int, 5> &words) {
    return slot.aircraft == words[0] && slot.german == words[1] && slot.german_no_plane == words[2] &&
           slot.allied_no_plane_a == words[3] && slot.allied_no_plane_b == words[4];
}

TEST(AirfieldLists, ChoosingCountryListIndex5Stores6) {
    EXPECT_EQ(countryEntries[5].caption, "(Czech. Rep.)");
    EXPECT_EQ(countryEntries[5].code, 6);
    for (std::uint8_t index = 0; index < 5; ++index)
        EXPECT_EQ(countryEntries[index].code, index);
}

TEST(AirfieldLists, EntriesStandInTheGamesOrder) {
    EXPECT_EQ(aircraftCaptions[0], "P-38H");
    EXPECT_EQ(aircraftCaptions[12], "Spitfire MK XIVe");
    EXPECT_EQ(aircraftCaptions[15], "Mosquito");
    EXPECT_EQ(aircraftCaptions[16], "Me-109E");
    EXPECT_EQ(aircraftCaptions[29], "V-1");
    EXPECT_EQ(aircraftCaptions[30], "Allied (No Plane)");
    EXPECT_EQ(aircraftCaptions[31], "Allied (No Plane)");
    EXPECT_EQ(aircraftCaptions[32], "German (No Plane)");
    EXPECT_EQ(airfieldModelCaptions[0], "NONE");
    EXPECT_EQ(airfieldModelCaptions[1], "airfld10.3dz");
    EXPECT_EQ(airfieldModelCaptions[10], "airfld07.3dz");
}

TEST(AirfieldLists, ChoosingAnEntryClearsTheSlotAndSetsItsOwnWords) {
    EXPECT_TRUE(YearSlotOfEntry(0) == (std::array{0, 0, 0, 0, 0}));
    EXPECT_TRUE(YearSlotOfEntry(15) == (std::array{15, 0, 0, 0, 0}));
    EXPECT_TRUE(YearSlotOfEntry(16) == (std::array{0, 65535, 0, 0, 0}));
    EXPECT_TRUE(YearSlotOfEntry(29) == (std::array{13, 65535, 0, 0, 0}));
    EXPECT_TRUE(YearSlotOfEntry(30) == (std::array{0, 0, 0, 65535, 0}));
    EXPECT_TRUE(YearSlotOfEntry(31) == (std::array{0, 0, 0, 0, 65535}));
    EXPECT_TRUE(YearSlotOfEntry(32) == (std::array{0, 0, 65535, 0, 0}));
    EXPECT_THROW(YearSlotOfEntry(33), Error);
    EXPECT_THROW(YearSlotOfEntry(-1), Error);
}

TEST(AirfieldLists, TheTwoAlliedEntriesWithoutPlaneAreTwoCodes) {
    EXPECT_EQ(CodeOfYearSlot(YearSlotOfEntry(30)), 512);
    EXPECT_EQ(CodeOfYearSlot(YearSlotOfEntry(31)), 256);
    EXPECT_EQ(CodeOfYearSlot(YearSlotOfEntry(32)), 128);
}

TEST(AirfieldLists, EveryEntryIsShownAgainAfterItsSlotWasStoredAndAfterItsCodeWasRead) {
    for (int entry = 0; entry <= 32; ++entry) {
        const AirfieldYearSlot slot = YearSlotOfEntry(entry);
        EXPECT_EQ(EntryOfYearSlot(slot), entry);
        EXPECT_EQ(YearSlotOfCode(CodeOfYearSlot(slot)), slot) << entry;
        if (entry < 30) {
            EXPECT_EQ(CodeOfYearSlot(slot), entry);
        }
    }
}

TEST(AirfieldLists, AirfieldYearCode300ReadsAsAnAllZeroSlotAndIsWrittenBackAs0) {
    EXPECT_EQ(YearSlotOfCode(300), AirfieldYearSlot{});
    EXPECT_EQ(CodeOfYearSlot(YearSlotOfCode(300)), 0);
}

TEST(AirfieldLists, EveryUnknownCodeReadsAsAnAllZeroSlot) {
    for (int code = 30; code <= 65535; ++code) {
        if (code != 128 && code != 256 && code != 512) {
            ASSERT_EQ(YearSlotOfCode(static_cast<std::uint16_t>(code)), AirfieldYearSlot{}) << code;
        }
    }
}

TEST(AirfieldLists, TheFirstFlagThatIsSetDecides) {
    AirfieldYearSlot slot{.aircraft = 5,
                          .german = flagSet,
                          .german_no_plane = flagSet,
                          .allied_no_plane_a = flagSet,
                          .allied_no_plane_b = flagSet};
    const auto expect = [&slot](int code, int entry) {
        EXPECT_EQ(CodeOfYearSlot(slot), code);
        EXPECT_EQ(EntryOfYearSlot(slot), entry);
    };
    expect(512, 30);
    slot.allied_no_plane_a = 0;
    expect(256, 31);
    slot.allied_no_plane_b = 0;
    expect(128, 32);
    slot.german_no_plane = 0;
    expect(21, 21);
    slot.german = 0;
    expect(5, 5);
}

TEST(AirfieldLists, AnAircraftBeyondItsSideHasNoEntry) {
    EXPECT_EQ(EntryOfYearSlot({.aircraft = 16}), std::nullopt);
    EXPECT_EQ(EntryOfYearSlot({.aircraft = 14, .german = flagSet}), std::nullopt);
    EXPECT_EQ(EntryOfYearSlot({.aircraft = 65535}), std::nullopt);
}

TEST(AirfieldLists, AnAircraftThatLeavesTheCodesByteIsAnOverflow) {
    EXPECT_EQ(CodeOfYearSlot({.aircraft = 255}), 255);
    EXPECT_EQ(CodeOfYearSlot({.aircraft = 239, .german = flagSet}), 255);
    EXPECT_THROW(CodeOfYearSlot({.aircraft = 256}), Error);
    EXPECT_THROW(CodeOfYearSlot({.aircraft = 240, .german = flagSet}), Error);
}

}  // namespace
}  // namespace vtr
