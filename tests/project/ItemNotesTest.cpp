#include <gtest/gtest.h>

#include <memory>

#include "ItemNotes.h"

namespace vtr {
namespace {

class ItemNotesTest : public ::testing::Test {
  protected:
    ItemNotesTest() {
        for (std::size_t i = 0; i < targetTotal; ++i)
            Target(i).code = static_cast<std::uint16_t>(i);
        for (FrontlinePoint &point : frontline.points)
            point = {160, 1760, 0};
    }
    TargetRecord &Target(std::size_t index) { return campaign->TargetTable.at(index); }
    void MakeAirfield(std::size_t target, std::uint16_t record) {
        Target(target).airfield_mark = flagSet;
        Target(target).airfield_ref = record;
    }

    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    Frontline frontline;
};

TEST_F(ItemNotesTest, ATargetTellsWithWhomItSharesItsName) {
    EXPECT_EQ(NoteOfTarget(*campaign, 50), "");
    Target(299).code = 50;
    EXPECT_EQ(NoteOfTarget(*campaign, 50), "Name shared with target 299");
    EXPECT_EQ(NoteOfTarget(*campaign, 299), "Name shared with target 50");
    Target(5).code = 50;
    EXPECT_EQ(NoteOfTarget(*campaign, 50), "Name shared with targets 5, 299");
    for (TargetRecord &target : campaign->TargetTable)
        target.code = 7;
    EXPECT_EQ(NoteOfTarget(*campaign, 1), "Name shared with targets 0, 2, 3, 4 and 297 more");
}

TEST_F(ItemNotesTest, ATargetOnAMarkerRowIsUnused) {
    Target(50).y = 1760;
    EXPECT_EQ(NoteOfTarget(*campaign, 50), "This target is unused");
    Target(50).y = 1759;
    EXPECT_EQ(NoteOfTarget(*campaign, 50), "This target is unused");
}

TEST_F(ItemNotesTest, AnAirfieldTellsWhoElseUsesItsRecord) {
    MakeAirfield(50, 44);
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "Airfield record 44");
    Target(100).airfield_ref = 44;
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "Airfield record 44") << "target 100 is no airfield";
    MakeAirfield(200, 44);
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "Airfield record 44, also used by target 200");
    MakeAirfield(201, 44);
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "Airfield record 44, also used by targets 200, 201");
    MakeAirfield(50, 161);
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "Airfield record 161");
    MakeAirfield(50, 162);
    EXPECT_EQ(NoteOfAirfield(*campaign, 50), "There is no airfield record 162");
}

TEST_F(ItemNotesTest, AFrontlinePointTellsHowManyAreInUse) {
    EXPECT_EQ(NoteOfFrontlinePoint(frontline, 0), "This point is unused");
    EXPECT_EQ(FirstFreePoint(frontline), 0);
    for (std::size_t i = 0; i < 26; ++i)
        frontline.points.at(i) = {1, 2, 0};
    EXPECT_EQ(NoteOfFrontlinePoint(frontline, 5), "Point 5 of 26 in use");
    EXPECT_EQ(NoteOfFrontlinePoint(frontline, 26), "This point is unused");
    EXPECT_EQ(FirstFreePoint(frontline), 26);
    frontline.points[4].y = 1759;
    EXPECT_EQ(FirstFreePoint(frontline), 4) << "the game reads no further than that";
    for (FrontlinePoint &point : frontline.points)
        point = {1, 2, 0};
    EXPECT_EQ(FirstFreePoint(frontline), std::nullopt);
    EXPECT_EQ(NoteOfFrontlinePoint(frontline, 29), "Point 29 of 30 in use");
}

TEST_F(ItemNotesTest, ARailwayLineTellsHowManyAreInUse) {
    for (std::size_t i = 0; i < 850; ++i)
        campaign->RailwayTable.at(i) = {.x1 = 1, .x2 = 2, .y1 = 3, .y2 = 4};
    EXPECT_EQ(NoteOfRailwayLine(*campaign, 12), "Line 12 of 850 in use");
    EXPECT_EQ(NoteOfRailwayLine(*campaign, 850), "This line is unused");
    campaign->RailwayTable[850] = {.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760};
    EXPECT_EQ(NoteOfRailwayLine(*campaign, 850), "This line is unused") << "so an empty record is read";
    EXPECT_EQ(NoteOfRailwayLine(*campaign, 849), "Line 849 of 850 in use");
}

TEST_F(ItemNotesTest, APathTellsItsWaypointsAndThatItIsOnlyShown) {
    WaypointPath path;
    path.count = 4;
    EXPECT_EQ(NoteOfPath(path), "Path has 4 waypoints; interdiction paths are shown, not edited");
    path.count = 1;
    EXPECT_EQ(NoteOfPath(path), "Path has 1 waypoint; interdiction paths are shown, not edited");
}

}  // namespace
}  // namespace vtr
