#include <gtest/gtest.h>

#include <memory>

#include "EditCampaign.h"
#include "ErrorThrownBy.h"
#include "TargetNameFile.h"

namespace vtr {
namespace {

class EditCampaignTest : public ::testing::Test {
  protected:
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

TEST_F(EditCampaignTest, ATargetsPixelsFineOffsetsAndCountAreSetOneByOne) {
    SetTargetPixel(*campaign, 301, Axis::X, 639);
    SetTargetPixel(*campaign, 301, Axis::Y, 319);
    SetTargetFineOffset(*campaign, 301, Axis::X, 4100);
    SetTargetFineOffset(*campaign, 301, Axis::Y, 0);
    SetTargetCount(*campaign, 301, 64);
    EXPECT_EQ(campaign->TargetTable[301].x, 639);
    EXPECT_EQ(campaign->TargetTable[301].y, 319);
    EXPECT_EQ(campaign->TargetTable[301].count, 64);
    EXPECT_EQ(campaign->TargetTable[301].fineOffsets[0], 4100);
    EXPECT_EQ(campaign->TargetTable[301].fineOffsets[1], 0);
    EXPECT_EQ(campaign->TargetTable[300].x, 0);
}

TEST_F(EditCampaignTest, BeingAnAirfieldIsStoredAs65535) {
    SetTargetIsAirfield(*campaign, 5, true);
    EXPECT_EQ(campaign->TargetTable[5].airfield_mark, 65535);
    SetTargetIsAirfield(*campaign, 5, false);
    EXPECT_EQ(campaign->TargetTable[5].airfield_mark, 0);
}

TEST_F(EditCampaignTest, ANewNameGoesToTheNameEntryAndToEveryTargetThatRefersToIt) {
    campaign->TargetTable[3].code = 307;
    campaign->TargetTable[200].code = 307;
    campaign->TargetTable[4].code = 306;
    RenameTarget(*campaign, 3, "Old mill");
    EXPECT_EQ(campaign->TargetNameTable[307], "Old mill");
    EXPECT_EQ(campaign->TargetTable[3].name, "Old mill");
    EXPECT_EQ(campaign->TargetTable[200].name, "Old mill");
    EXPECT_EQ(campaign->TargetTable[4].name, "");
    EXPECT_EQ(campaign->TargetNameTable[306], "");
}

TEST_F(EditCampaignTest, ANameFitsUntilTheNamesFileIsFull) {
    static_assert(targetNamesMaxLength == 31227);
    campaign->TargetTable[3].code = 10;
    campaign->TargetNameTable[10] = "0123456789";
    campaign->TargetNameTable[11] = std::string(31200, 'x');
    EXPECT_TRUE(TargetNameFits(*campaign, 3, std::string(27, 'y')));
    EXPECT_FALSE(TargetNameFits(*campaign, 3, std::string(28, 'y')));
}

TEST_F(EditCampaignTest, ANameMayAlwaysBecomeShorter) {
    campaign->TargetTable[3].code = 10;
    campaign->TargetNameTable[10] = "0123456789";
    campaign->TargetNameTable[11] = std::string(40000, 'x');
    EXPECT_TRUE(TargetNameFits(*campaign, 3, "012345678"));
    EXPECT_FALSE(TargetNameFits(*campaign, 3, "01234567890"));
}

TEST_F(EditCampaignTest, AnAirfieldsYearsAreKeptApart) {
    for (std::size_t year = 0; year < 4; ++year)
        SetAirfieldModel(*campaign, 161, year, static_cast<int>(year) + 1);
    const AirfieldYearSlot slot{.aircraft = 3, .german = 65535};
    SetAirfieldYearSlot(*campaign, 161, 2, slot);
    SetAirfieldExtraWord(*campaign, 161, 65535);
    SetAirfieldCountry(*campaign, 161, 6);
    const AirfieldRecord &airfield = campaign->AirfieldTable[161];
    EXPECT_EQ(airfield.base_1940, 1);
    EXPECT_EQ(airfield.base_1943, 2);
    EXPECT_EQ(airfield.base_1944, 3);
    EXPECT_EQ(airfield.base_1945, 4);
    EXPECT_EQ(airfield.yearSlots[2], slot);
    EXPECT_EQ(airfield.yearSlots[1], AirfieldYearSlot{});
    EXPECT_EQ(airfield.airfield_extra_word, 65535);
    EXPECT_EQ(airfield.country, 6);
}

TEST_F(EditCampaignTest, MovingAMarkerPointOntoTheMapMakesItCount) {
    campaign->FrontlineTable[19].points.fill({.x = 160, .y = 1760});
    EXPECT_EQ(campaign->FrontlineTable[19].point_count(), 0);
    SetFrontlinePixel(*campaign, 19, 29, Axis::X, 7);
    SetFrontlinePixel(*campaign, 19, 29, Axis::Y, 8);
    SetFrontlinePointOnMap(*campaign, 19, 29, true);
    EXPECT_EQ(campaign->FrontlineTable[19].points[29], (FrontlinePoint{.x = 7, .y = 8, .on_map = 65535}));
    EXPECT_EQ(campaign->FrontlineTable[19].point_count(), 1);
    SetFrontlinePointOnMap(*campaign, 19, 29, false);
    EXPECT_EQ(campaign->FrontlineTable[19].points[29].on_map, 0);
}

TEST_F(EditCampaignTest, CopyingAFrontlineMakesAllTwentyAlike) {
    for (std::size_t point = 0; point < 30; ++point)
        campaign->FrontlineTable[7].points[point] = {.x = 1, .y = 2, .on_map = 65535};
    const Frontline copied = campaign->FrontlineTable[7];
    CopyFrontlineIntoAllSlots(*campaign, 7);
    for (const Frontline &frontline : campaign->FrontlineTable)
        EXPECT_EQ(frontline, copied);
}

TEST_F(EditCampaignTest, ARailwayLinesCoordinatesGoWhereTheFileHasThem) {
    int pixel = 1;
    for (const RailwayCoordinate coordinate : {X1, X2, Y1, Y2}) {
        SetRailwayPixel(*campaign, 893, coordinate, pixel);
        SetRailwayFineOffset(*campaign, 893, coordinate, 1000 + pixel);
        ++pixel;
    }
    EXPECT_EQ(campaign->RailwayTable[893],
              (RailwayLine{.x1 = 1, .x2 = 2, .y1 = 3, .y2 = 4, .fineOffsets = {1001, 1002, 1003, 1004}}));
}

TEST_F(EditCampaignTest, DisablingClearsBothEndsFromALineOnAndKeepsTheFineOffsets) {
    campaign->RailwayTable.fill({.x1 = 1, .x2 = 2, .y1 = 3, .y2 = 4, .fineOffsets = {7.5, 7.5, 7.5, 7.5}});
    DisableRailwayFrom(*campaign, 850);
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 850);
    EXPECT_EQ(campaign->RailwayTable[849].y2, 4);
    for (std::size_t line = 850; line < 894; ++line) {
        EXPECT_EQ(campaign->RailwayTable[line], (RailwayLine{.fineOffsets = {7.5, 7.5, 7.5, 7.5}})) << line;
    }
    EnableRailway(*campaign);
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 0);
    EXPECT_TRUE(campaign->RailwayTable[850].IsUnused());
}

TEST_F(EditCampaignTest, DisablingFromLine0ClearsEveryLine) {
    campaign->RailwayTable.fill({.x1 = 1, .x2 = 2, .y1 = 3, .y2 = 4});
    DisableRailwayFrom(*campaign, 0);
    for (const RailwayLine &line : campaign->RailwayTable)
        EXPECT_EQ(line, RailwayLine{});
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 0);
}

TEST_F(EditCampaignTest, AnItemBeyondItsTableIsAnIndexError) {
    Campaign &c = *campaign;
    constexpr auto outOfRange = ErrorKind::IndexOutOfRange;
    EXPECT_EQ(KindThrownBy([&] { SetTargetPixel(c, 302, Axis::X, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetTargetFineOffset(c, -1, Axis::X, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetAirfieldCountry(c, 162, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetFrontlinePixel(c, 20, 0, Axis::X, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetFrontlinePixel(c, 0, 30, Axis::X, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { CopyFrontlineIntoAllSlots(c, 20); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetRailwayPixel(c, 894, X1, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { SetRailwayFineOffset(c, 894, X1, 0); }), outOfRange);
    EXPECT_EQ(KindThrownBy([&] { DisableRailwayFrom(c, 894); }), outOfRange);
    c.TargetTable[0].code = 308;
    EXPECT_EQ(KindThrownBy([&] { RenameTarget(c, 0, ""); }), outOfRange);
}

TEST_F(EditCampaignTest, ANumberThatItsFieldCannotHoldIsAnOverflowAndChangesNothing) {
    campaign->TargetTable[1].count = 9;
    EXPECT_EQ(KindThrownBy([&] { SetTargetCount(*campaign, 1, 256); }), ErrorKind::Overflow);
    EXPECT_EQ(campaign->TargetTable[1].count, 9);
    EXPECT_EQ(KindThrownBy([&] { SetTargetPixel(*campaign, 1, Axis::Y, 32768); }), ErrorKind::Overflow);
    EXPECT_EQ(KindThrownBy([&] { SetAirfieldExtraWord(*campaign, 1, 65536); }), ErrorKind::Overflow);
}

}  // namespace
}  // namespace vtr
