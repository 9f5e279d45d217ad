#include <gmock/gmock.h>

#include <set>

#include "AirfieldLists.h"
#include "AirfieldMaker.h"
#include "SharedSample.h"

namespace vtr {
namespace {

TEST(AirfieldMaker, MakesAirfieldsOfAllCountries) {
    std::set<int> codes;
    for (const AirfieldRecord &airfield : Sample().AirfieldTable)
        codes.insert(airfield.country);
    EXPECT_THAT(codes, testing::ElementsAre(0, 1, 2, 3, 4, 6));
}

TEST(AirfieldMaker, BasesEveryEntryOfTheAircraftListSomewhere) {
    std::set<int> entries;
    for (const AirfieldRecord &airfield : Sample().AirfieldTable)
        for (const AirfieldYearSlot &slot : airfield.yearSlots)
            entries.insert(EntryOfYearSlot(slot).value());
    EXPECT_EQ(entries.size(), 33U);
}

TEST(AirfieldMaker, UsesEveryModelInEveryYear) {
    std::array<std::set<int>, 4> models;
    for (const AirfieldRecord &airfield : Sample().AirfieldTable) {
        models[0].insert(airfield.base_1940);
        models[1].insert(airfield.base_1943);
        models[2].insert(airfield.base_1944);
        models[3].insert(airfield.base_1945);
    }
    EXPECT_EQ(models[0].size(), 11U);
    for (const std::set<int> &ofYear : models)
        EXPECT_TRUE(std::ranges::includes(ofYear, std::set{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(AirfieldMaker, BasesNoPlanesWhereThereIsNoAirfieldYet) {
    int withoutField = 0;
    for (const AirfieldRecord &airfield : Sample().AirfieldTable)
        if (airfield.base_1940 == 0) {
            ++withoutField;
            EXPECT_GE(EntryOfYearSlot(airfield.yearSlots[0]).value(), 30);
        }
    EXPECT_GT(withoutField, 10);
}

}  // namespace
}  // namespace vtr
