#include <gmock/gmock.h>

#include <memory>

#include "AirfieldLists.h"
#include "ItemTable.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;

class ItemTableTest : public ::testing::Test {
  protected:
    std::vector<std::string> Captions(ItemKind kind) {
        std::vector<std::string> captions;
        for (const ItemColumn &column : ItemTableOf(kind).columns)
            captions.emplace_back(column.caption);
        return captions;
    }
    std::vector<std::string> Row(ItemKind kind, std::size_t row) {
        std::vector<std::string> texts;
        for (const ItemColumn &column : ItemTableOf(kind).columns)
            texts.push_back(TextOf(column.cell(*campaign, row)));
        return texts;
    }
    bool IsUsed(ItemKind kind, std::size_t row) { return ItemTableOf(kind).isUsed(*campaign, row); }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

TEST_F(ItemTableTest, ATargetHasItsFieldsAndItsAirfieldWhenItIsOne) {
    EXPECT_THAT(Captions(ItemKind::Target),
                ElementsAre("Number", "Name", "X", "Y", "X m", "Y m", "Objects", "Airfield"));
    TargetRecord &target = campaign->TargetTable[301];
    target.x = 110;
    target.y = 319;
    target.name = "K\xD6LN";
    target.count = 8;
    target.airfield_ref = 44;
    target.fineOffsets = {1697, 446.5};
    EXPECT_THAT(Row(ItemKind::Target, 301),
                ElementsAre("301", "K\xC3\x96LN", "110", "319", "1697", "446.5", "8", ""));
    target.airfield_mark = flagSet;
    EXPECT_EQ(Row(ItemKind::Target, 301).back(), "44");
    EXPECT_TRUE(IsUsed(ItemKind::Target, 301));
    EXPECT_EQ(ItemTableOf(ItemKind::Target).rowTotal, 302U);
}

TEST_F(ItemTableTest, AnAirfieldHasItsTargetsAndWhatItsPanelShows) {
    EXPECT_THAT(Captions(ItemKind::Airfield),
                ElementsAre("Number", "Targets", "Country", "Orientation", "Model 1940", "Aircraft 1940",
                            "Model 1943", "Aircraft 1943", "Model 1944", "Aircraft 1944", "Model 1945",
                            "Aircraft 1945"));
    for (const std::size_t target : {5U, 299U}) {
        campaign->TargetTable[target].airfield_mark = flagSet;
        campaign->TargetTable[target].airfield_ref = 44;
    }
    campaign->TargetTable[7].airfield_ref = 44;  // without the mark it is no airfield
    AirfieldRecord &airfield = campaign->AirfieldTable[44];
    airfield.country = 4;
    airfield.airfield_extra_word = 270;
    airfield.base_1945 = 200;
    airfield.yearSlots[1] = YearSlotOfEntry(13);
    airfield.yearSlots[3].aircraft = 16;
    const std::string none(airfieldModelCaptions[0]);
    EXPECT_THAT(Row(ItemKind::Airfield, 44), ElementsAre("44", "5, 299", "Holland", "270", none, "P-38H",
                                                         none, "Typhoon", none, "P-38H", "200", "unknown"));
    EXPECT_EQ(Row(ItemKind::Airfield, 45)[1], "");
}

TEST_F(ItemTableTest, AFrontlinePointIsUsedUnlessItMarksTheEnd) {
    EXPECT_THAT(Captions(ItemKind::FrontlinePoint), ElementsAre("Frontline", "Point", "X", "Y", "On Map"));
    campaign->FrontlineTable[19].points[29] = {.x = 639, .y = 12, .on_map = flagSet};
    campaign->FrontlineTable[19].points[28] = {.x = 1, .y = 2, .on_map = 0};
    EXPECT_THAT(Row(ItemKind::FrontlinePoint, 599), ElementsAre("19", "29", "639", "12", "yes"));
    EXPECT_THAT(Row(ItemKind::FrontlinePoint, 598), ElementsAre("19", "28", "1", "2", "no"));
    EXPECT_TRUE(IsUsed(ItemKind::FrontlinePoint, 599));
    campaign->FrontlineTable[19].points[29].y = 1759;
    EXPECT_FALSE(IsUsed(ItemKind::FrontlinePoint, 599));
    campaign->FrontlineTable[19].points[29].y = 1760;
    EXPECT_FALSE(IsUsed(ItemKind::FrontlinePoint, 599));
    EXPECT_EQ(ItemTableOf(ItemKind::FrontlinePoint).rowTotal, 600U);
}

TEST_F(ItemTableTest, ARailwayLineIsUsedUnlessItIsZeroInTheTableOrInTheFile) {
    EXPECT_THAT(Captions(ItemKind::RailwayLine),
                ElementsAre("Line", "X1", "X1 m", "Y1", "Y1 m", "X2", "X2 m", "Y2", "Y2 m"));
    campaign->RailwayTable[893] = {.x1 = 1, .x2 = 2, .y1 = 3, .y2 = 4, .fineOffsets = {10, 20, 30, 40.25}};
    EXPECT_THAT(Row(ItemKind::RailwayLine, 893),
                ElementsAre("893", "1", "10", "3", "30", "2", "20", "4", "40.25"));
    EXPECT_TRUE(IsUsed(ItemKind::RailwayLine, 893));
    EXPECT_FALSE(IsUsed(ItemKind::RailwayLine, 892));
    campaign->RailwayTable[893] = {.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760};
    EXPECT_FALSE(IsUsed(ItemKind::RailwayLine, 893));
    campaign->RailwayTable[893].y2 = 7;
    EXPECT_TRUE(IsUsed(ItemKind::RailwayLine, 893));
    EXPECT_EQ(ItemTableOf(ItemKind::RailwayLine).rowTotal, 894U);
}

TEST_F(ItemTableTest, APathHasItsFirstAndItsLastWaypoint) {
    EXPECT_THAT(Captions(ItemKind::RoadPath),
                ElementsAre("Path", "Waypoints", "First X", "First Y", "Last X", "Last Y"));
    WaypointPath &road = campaign->RoadWaypointTable[296];
    road.count = 3;
    road.waypoints[0] = {.x = 1, .y = 2};
    road.waypoints[2] = {.x = 5, .y = 6};
    EXPECT_THAT(Row(ItemKind::RoadPath, 296), ElementsAre("296", "3", "1", "2", "5", "6"));
    EXPECT_TRUE(IsUsed(ItemKind::RoadPath, 296));
    EXPECT_FALSE(IsUsed(ItemKind::RoadPath, 0));
    WaypointPath &rail = campaign->RailWaypointTable[98];
    rail.count = 99;  // more than a path has
    rail.waypoints[11] = {.x = 7, .y = 8};
    EXPECT_THAT(Row(ItemKind::RailPath, 98), ElementsAre("98", "99", "0", "0", "7", "8"));
    EXPECT_EQ(ItemTableOf(ItemKind::RoadPath).rowTotal, 297U);
    EXPECT_EQ(ItemTableOf(ItemKind::RailPath).rowTotal, 99U);
}

}  // namespace
}  // namespace vtr
