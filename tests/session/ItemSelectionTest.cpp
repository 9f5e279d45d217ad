#include <gtest/gtest.h>

#include <memory>

#include "ItemSelection.h"

namespace vtr {
namespace {

class ItemSelectionTest : public ::testing::Test {
  protected:
    /// Selects the row, which must leave what is selected in the other modes as it was.
    void Select(ItemKind kind, std::size_t row, EditMode mode, Selection expected) {
        session->layers.*layersOfModes[static_cast<std::size_t>(mode)] = false;
        EXPECT_TRUE(SelectRow(*session, kind, row));
        EXPECT_EQ(session->mode, mode);
        EXPECT_EQ(session->selection, expected);
        EXPECT_TRUE(session->layers.*layersOfModes[static_cast<std::size_t>(mode)]);
    }

    std::unique_ptr<Session> session = std::make_unique<Session>();
};

TEST_F(ItemSelectionTest, EachKindIsSelectedInItsModeWithItsLayerShown) {
    session->campaign.TargetTable[8].airfield_ref = 44;  // without the mark it is no airfield
    for (const std::size_t target : {9U, 200U}) {
        session->campaign.TargetTable[target].airfield_mark = flagSet;
        session->campaign.TargetTable[target].airfield_ref = 44;
    }
    Selection expected;
    expected.frontline = 3;
    expected.frontlinePoint = 5;
    Select(ItemKind::FrontlinePoint, 95, EditMode::Frontline, expected);
    expected.railwayLine = 893;
    Select(ItemKind::RailwayLine, 893, EditMode::Railway, expected);
    session->selection.road.waypoint = 4;
    expected.road = {.path = 296, .waypoint = 0};
    Select(ItemKind::RoadPath, 296, EditMode::RoadInt, expected);
    expected.rail = {.path = 98, .waypoint = 0};
    Select(ItemKind::RailPath, 98, EditMode::RailInt, expected);
    expected.target = 301;
    Select(ItemKind::Target, 301, EditMode::Target, expected);
    expected.target = 9;
    Select(ItemKind::Airfield, 44, EditMode::Target, expected);
}

TEST_F(ItemSelectionTest, AnAirfieldWithoutATargetChangesNothing) {
    session->selection.target = 7;
    SwitchMode(*session, EditMode::Railway);
    EXPECT_FALSE(SelectRow(*session, ItemKind::Airfield, 1));
    EXPECT_EQ(session->mode, EditMode::Railway);
    EXPECT_EQ(session->selection.target, 7);
}

TEST_F(ItemSelectionTest, AnEditAfterItIsAnotherOne) {
    const auto move = [this](std::int16_t x) {
        session->Do(
            "Move Target 0", {RowOf(Table::Targets, 0)},
            [x](Campaign &campaign) { campaign.TargetTable[0].x = x; }, "upd_tar_x");
    };
    move(1);
    SelectRow(*session, ItemKind::Target, 0);
    move(2);
    session->Undo();
    EXPECT_EQ(session->campaign.TargetTable[0].x, 1);
}

}  // namespace
}  // namespace vtr
