#include <gtest/gtest.h>

#include <memory>

#include "UnderPointer.h"

namespace vtr {
namespace {

class UnderPointerTest : public ::testing::Test {
  protected:
    UnderPointerTest() {
        Campaign &campaign = session->campaign;
        campaign.ProjectLoaded = true;
        session->view.MapZoom = 1;
        for (TargetRecord &target : campaign.TargetTable)
            target.y = 1760;
        for (Frontline &frontline : campaign.FrontlineTable)
            for (FrontlinePoint &point : frontline.points)
                point.y = 1760;
        campaign.terrain[97 * 640 + 312] = 9 + 64;
    }

    /// Puts the target on (312, 97).
    TargetRecord &PutTarget(std::size_t index, const std::string &name) {
        TargetRecord &target = session->campaign.TargetTable.at(index);
        target = {.x = 312, .y = 97, .name = name};
        return target;
    }
    void PutPath(WaypointPath &path) {
        path.waypoints[1] = {312, 97, 0};
        path.waypoints[2] = {312, 120, flagSet};
        path.count = 3;
    }
    std::string Text(int x = 312, int y = 97) const { return WhatIsUnder(*session, x, y).text; }

    std::unique_ptr<Session> session = std::make_unique<Session>();
};

TEST_F(UnderPointerTest, WithoutAnItemItIsTheTileAndThePlace) {
    EXPECT_EQ(Text(), "On 09 Field4\n1279.2 km / 397.7 km");
    EXPECT_EQ(Text(0, 0), "On 00 Field8\n0.0 km / 0.0 km");
    EXPECT_EQ(Text(639, 319), "On 00 Field8\n2619.9 km / 1307.9 km");
    session->campaign.terrain[0] = 63;
    EXPECT_EQ(Text(0, 0), "On tile type 63\n0.0 km / 0.0 km");
}

TEST_F(UnderPointerTest, ATargetIsToldWithItsNameItsObjectsAndItsMetres) {
    TargetRecord &target = PutTarget(50, "Wexlinmere Bridge");
    target.count = 8;
    target.fineOffsets = {1697.4, 445.5};
    EXPECT_EQ(Text(),
              "Target 50 Wexlinmere Bridge, 8 objects, 1697 m / 446 m, on 09 Field4\n1279.2 km / 397.7 km");
    target.count = 1;
    target.name = "K\xF6ln\n2";
    EXPECT_EQ(Text(), "Target 50 K\u00F6ln 2, 1 object, 1697 m / 446 m, on 09 Field4\n1279.2 km / 397.7 km");
    target.name = "";
    EXPECT_EQ(Text(), "Target 50, 1 object, 1697 m / 446 m, on 09 Field4\n1279.2 km / 397.7 km");
}

TEST_F(UnderPointerTest, ItemsOfEveryKindAreToldInEveryMode) {
    Campaign &campaign = session->campaign;
    PutTarget(3, "A");
    PutTarget(50, "B");
    session->layers = {.mnu_v_roadint = true, .mnu_v_railint = true};
    campaign.FrontlineTable[0].points[0] = {312, 97, 0};
    campaign.FrontlineTable[0].points[1] = {330, 97, 0};
    campaign.RailwayTable[12] = {.x1 = 312, .x2 = 400, .y1 = 97, .y2 = 200};
    PutPath(campaign.RoadWaypointTable[7]);
    PutPath(campaign.RailWaypointTable[98]);
    session->selection.railwayLine = 20;
    for (const EditMode mode :
         {EditMode::Target, EditMode::Frontline, EditMode::Railway, EditMode::RoadInt, EditMode::RailInt}) {
        session->mode = mode;
        campaign.TargetTable[50].y = 1760;
        EXPECT_EQ(Text(),
                  "Target 3 A, 0 objects, 0 m / 0 m\n"
                  "Point 0 of frontline 0\n"
                  "Railway line 12\n"
                  "Waypoint 1 of road path 7\n"
                  "Waypoint 1 of rail path 98, on 09 Field4\n"
                  "1279.2 km / 397.7 km");
        campaign.TargetTable[50].y = 97;
        EXPECT_EQ(Text(),
                  "Target 3 A, 0 objects, 0 m / 0 m\n"
                  "Target 50 B, 0 objects, 0 m / 0 m\n"
                  "Point 0 of frontline 0\n"
                  "Railway line 12\n"
                  "Waypoint 1 of road path 7\n"
                  "and 1 more, on 09 Field4\n"
                  "1279.2 km / 397.7 km");
    }
}

TEST_F(UnderPointerTest, BesideItsPointsAFrontlineOrAPathIsTold) {
    Campaign &campaign = session->campaign;
    session->layers = {.mnu_v_roadint = true, .mnu_v_railint = true};
    campaign.FrontlineTable[0].points[0] = {300, 98, 0};
    campaign.FrontlineTable[0].points[1] = {330, 98, 0};
    PutPath(campaign.RoadWaypointTable[7]);
    PutPath(campaign.RailWaypointTable[98]);
    EXPECT_EQ(Text(312, 98), "Frontline 0\nRoad path 7\nRail path 98, on 00 Field8\n1279.2 km / 401.8 km");
}

TEST_F(UnderPointerTest, AClickSelectsOnlyATargetAndOnlyInItsMode) {
    session->campaign.RailwayTable[12] = {.x1 = 320, .x2 = 400, .y1 = 97, .y2 = 97};
    PutTarget(50, "B");
    EXPECT_TRUE(WhatIsUnder(*session, 312, 97).clickSelects);
    EXPECT_FALSE(WhatIsUnder(*session, 313, 97).clickSelects);
    EXPECT_FALSE(WhatIsUnder(*session, 320, 97).clickSelects);
    session->layers.mnu_v_targets = false;
    EXPECT_TRUE(WhatIsUnder(*session, 312, 97).clickSelects);
    session->mode = EditMode::Frontline;
    EXPECT_FALSE(WhatIsUnder(*session, 312, 97).clickSelects);
}

TEST_F(UnderPointerTest, ThePixelIsThatOfTheZoomedAndScrolledView) {
    session->view.MapZoom = 4;
    session->view.h_scroll.Value = 300;
    session->view.v_scroll.Value = 90;
    PutTarget(50, "B");
    const std::string there = Text(48, 28);
    EXPECT_TRUE(there.starts_with("Target 50 B")) << there;
    EXPECT_EQ(Text(51, 31), there);
    EXPECT_EQ(Text(52, 31), "On 00 Field8\n1283.3 km / 397.7 km");
}

TEST_F(UnderPointerTest, ThereIsNothingBesideTheMapAndBeforeTheFirstLoad) {
    PutTarget(0, "A").x = 0;
    EXPECT_EQ(WhatIsUnder(*session, -1, 5), UnderPointer{});
    EXPECT_EQ(WhatIsUnder(*session, 640, 5), UnderPointer{});
    EXPECT_EQ(WhatIsUnder(*session, 5, 320), UnderPointer{});
    session->view.MapZoom = 3;
    session->view.h_scroll.Value = 427;
    EXPECT_EQ(WhatIsUnder(*session, 639, 5), UnderPointer{}) << "the map ends one column before";
    session->campaign.ProjectLoaded = false;
    EXPECT_EQ(WhatIsUnder(*session, 5, 5), UnderPointer{});
}

}  // namespace
}  // namespace vtr
