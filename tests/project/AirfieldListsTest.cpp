#include <gmock/gmock.h>

#include <vector>

#include "AirfieldLists.h"

namespace vtr {
namespace {

using ::testing::ElementsAreArray;

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
    EXPECT_THAT(aircraftCaptions, ElementsAreArray({"P-38H",
                                                    "P-38J",
                                                    "P-47C",
                                                    "P-47D",
                                                    "P-51B",
                                                    "P-51D",
                                                    "B-17F",
                                                    "B-24D",
                                                    "B-26B",
                                                    "Hurricane",
                                                    "Spitfire Mk I",
                                                    "Spitfire Mk IX",
                                                    "Spitfire MK XIVe",
                                                    "Typhoon",
                                                    "Tempest",
                                                    "Mosquito",
                                                    "Me-109E",
                                                    "Me-109G",
                                                    "Me-109K",
                                                    "Me-110C",
                                                    "Me-110G",
                                                    "Me-410",
                                                    "Fw-190A",
                                                    "Fw-190D",
                                                    "Me-262A",
                                                    "Ju-88A",
                                                    "Ju-88C",
                                                    "Ju-87B",
                                                    "He-111",
                                                    "V-1",
                                                    "Allied (No Plane)",
                                                    "Allied (No Plane)",
                                                    "German (No Plane)"}));
    EXPECT_THAT(airfieldModelCaptions,
                ElementsAreArray({"NONE", "airfld10.3dz", "airfld09.3dz", "airfld06.3dz", "airfld02.3dz",
                                  "airfld11.3dz", "airfld01.3dz", "airfld03.3dz", "airfld04.3dz",
                                  "airfld05.3dz", "airfld07.3dz"}));
    std::vector<std::string_view> countries;
    for (const CountryEntry &entry : countryEntries)
        countries.push_back(entry.caption);
    EXPECT_THAT(countries, ElementsAreArray({"Great Britain", "Germany", "France", "Belgium", "Holland",
                                             "(Czech. Rep.)"}));
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
