#include <gtest/gtest.h>

#include "MapScene.h"

namespace vtr {
namespace {

/// Both interdiction layers. Each path goes from (10, y) over (20, y) to (20, y + 1), with y by its number.
class InterdictionLayers : public testing::Test, public MapScene {
  protected:
    InterdictionLayers() {
        for (std::size_t i = 0; i < roadPathTotal; ++i)
            SetPath(campaign->RoadWaypointTable[i], {{10, Row(i)}, {20, Row(i)}, {20, Row(i) + 1}});
        for (std::size_t i = 0; i < railPathTotal; ++i)
            SetPath(campaign->RailWaypointTable[i], {{100, Row(i)}, {120, Row(i)}, {120, Row(i) + 1}});
    }
    static int Row(std::size_t path) { return static_cast<int>(path); }

    void ExpectPaths(int x, std::uint32_t colour, std::size_t total, std::size_t first, std::size_t last) {
        for (std::size_t i = 0; i < total; ++i)
            EXPECT_EQ(At(x, Row(i)), i >= first && i <= last ? colour : ground) << "path " << i;
    }
};

TEST_F(InterdictionLayers, AreNotDrawnWhenOff) {
    Redraw();
    EXPECT_EQ(Count(ground), 640 * 320);
}

TEST_F(InterdictionLayers, ViewNumber0DrawsAll297RoadPaths) {
    display.mnu_v_roadint = true;
    Redraw();
    ExpectPaths(15, roadInt, 297, 0, 296);
    EXPECT_EQ(Count(railInt), 0);
}

TEST_F(InterdictionLayers, RoadViewNumber1ShowsPath0Only) {
    display.mnu_v_roadint = true;
    display.upd_view_roadint = 1;
    Redraw();
    ExpectPaths(15, roadInt, 297, 0, 0);
    display.upd_view_roadint = 297;
    Redraw();
    ExpectPaths(15, roadInt, 297, 296, 296);
}

TEST_F(InterdictionLayers, ViewNumber0DrawsAll99RailPaths) {
    display.mnu_v_railint = true;
    Redraw();
    ExpectPaths(110, railInt, 99, 0, 98);
    EXPECT_EQ(Count(roadInt), 0);
}

TEST_F(InterdictionLayers, RailViewNumber99ShowsPath98Only) {
    display.mnu_v_railint = true;
    display.upd_view_railint = 99;
    Redraw();
    ExpectPaths(110, railInt, 99, 98, 98);
    EXPECT_EQ(Count(railInt), 22);
}

TEST_F(InterdictionLayers, APathOfTwelvePointsIsDrawnToItsEndAndOneOfLessThanTwoNotAtAll) {
    display.mnu_v_railint = true;
    display.upd_view_railint = 1;
    WaypointPath &path = campaign->RailWaypointTable[0];
    SetPath(path, {{200, 100},
                   {202, 100},
                   {204, 100},
                   {206, 100},
                   {208, 100},
                   {210, 100},
                   {212, 100},
                   {214, 100},
                   {216, 100},
                   {218, 100},
                   {220, 100},
                   {222, 100}});
    Redraw();
    EXPECT_EQ(Count(railInt), 23);
    for (const int count : {1, 0, -1}) {
        path.count = static_cast<std::int16_t>(count);
        Redraw();
        EXPECT_EQ(Count(railInt), 0) << count;
    }
}

TEST_F(InterdictionLayers, ShowLinesAsWideAsAMapPixelAtEveryZoom) {
    display.mnu_v_roadint = display.mnu_v_railint = true;
    display.upd_view_roadint = display.upd_view_railint = 1;
    SetPath(campaign->RoadWaypointTable[0], {{11, 5}, {11, 8}});
    SetPath(campaign->RailWaypointTable[0], {{13, 5}, {13, 8}});
    Redraw();
    ExpectPixels({{10, 6, ground}, {11, 5, roadInt}, {11, 8, roadInt}, {11, 9, ground}, {13, 6, railInt}});
    struct At {
        int zoom, row, first, last, railFirst;
    };
    for (const At &at : {At{2, 4, 2, 3, 6},
                         {3, 6, 3, 5, 9},
                         {4, 8, 4, 7, 12},
                         {10, 20, 10, 19, 30},
                         {100, 200, 100, 199, 300}}) {
        Show(at.zoom, 10, 4);
        Redraw();
        ExpectPixels({{at.first - 1, at.row, ground},
                      {at.first, at.row, roadInt},
                      {at.last, at.row, roadInt},
                      {at.last + 1, at.row, ground},
                      {at.railFirst - 1, at.row, ground},
                      {at.railFirst, at.row, railInt}});
    }
}

TEST_F(InterdictionLayers, DoNotLookAtTheEditMode) {
    display.mnu_v_roadint = true;
    display.upd_view_roadint = 3;
    display.mnu_e_frontline = display.mnu_e_railway = true;
    Redraw();
    ExpectPaths(15, roadInt, 297, 2, 2);
}

TEST_F(InterdictionLayers, AViewNumberBeyondTheTableIsAnIndexError) {
    display.mnu_v_roadint = true;
    display.upd_view_roadint = 298;
    ExpectIndexError(*this, "road interdiction path");
    display.upd_view_roadint = -1;
    ExpectIndexError(*this, "road interdiction path");
    display.mnu_v_roadint = false;
    display.mnu_v_railint = true;
    display.upd_view_railint = 100;
    ExpectIndexError(*this, "rail interdiction path");
}

TEST_F(InterdictionLayers, APathOfMoreThanTwelvePointsIsAnIndexError) {
    display.mnu_v_railint = true;
    campaign->RailWaypointTable[4].count = 13;
    ExpectIndexError(*this, "rail interdiction path");
}

}  // namespace
}  // namespace vtr
