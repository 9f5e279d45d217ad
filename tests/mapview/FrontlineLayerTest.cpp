#include <gtest/gtest.h>

#include "MapPen.h"
#include "MapScene.h"

namespace vtr {
namespace {

class FrontlineLayer : public testing::Test, public MapScene {
  protected:
    FrontlineLayer() {
        display.mnu_v_frontlines = true;
        SetFrontline(0, {{20, 30}, {40, 30}, {40, 50}});
        SetFrontline(19, {{100, 30}, {120, 30}});
    }

    void EditPoint(int point) {
        display.mnu_e_frontline = true;
        display.upd_frnt_pointnum = static_cast<std::int16_t>(point);
    }
};

TEST_F(FrontlineLayer, DrawsTheSegmentsOfOneFrontlineFromPointToPoint) {
    Redraw();
    ExpectPixels({{20, 30, frontline},
                  {30, 30, frontline},
                  {40, 40, frontline},
                  {40, 50, frontline},
                  {40, 51, ground},
                  {19, 30, ground},
                  {110, 30, ground}});
    EXPECT_EQ(Count(frontline), 21 + 20);
}

TEST_F(FrontlineLayer, OutsideFrontlineEditModeShowsViewFrontlineWithoutARing) {
    display.upd_frnt_num = 0;
    display.upd_frnt_pointnum = 0;
    view.ViewFrontline = 19;
    Redraw();
    EXPECT_EQ(Count(frontline), 21);
    EXPECT_EQ(At(110, 30), frontline);
}

TEST_F(FrontlineLayer, InFrontlineEditModeShowsTheEditedFrontline) {
    display.mnu_e_frontline = true;
    display.upd_frnt_num = 19;
    display.upd_frnt_pointnum = 29;
    view.ViewFrontline = 0;
    Redraw();
    EXPECT_EQ(Count(frontline), 21);
    EXPECT_EQ(At(110, 30), frontline);
}

TEST_F(FrontlineLayer, TheSelectedPointHasARingOfRadius4At100Percent) {
    EditPoint(0);
    Redraw();
    ExpectPixels({{16, 30, frontline},
                  {24, 30, frontline},
                  {20, 26, frontline},
                  {20, 34, frontline},
                  {17, 27, frontline},
                  {15, 30, ground},
                  {20, 25, ground},
                  {18, 30, ground},
                  {20, 27, ground}});
}

TEST_F(FrontlineLayer, RingAndSegmentsGrowWithTheZoom) {
    EditPoint(0);
    // The ring's pen is as wide as the segment's. The ring covers 3.5 to 4.5 factors from the point's middle.
    Show(2, 10, 20);  // middle (21, 21): 7 to 9
    Redraw();
    ExpectPixels({{11, 21, ground},
                  {12, 21, frontline},
                  {13, 20, frontline},
                  {14, 19, ground},
                  {40, 20, frontline},
                  {40, 21, frontline},
                  {40, 19, ground},
                  {40, 22, ground}});
    Show(3, 10, 20);  // middle (31.5, 31.5): 10.5 to 13.5
    Redraw();
    ExpectPixels({{17, 31, ground},
                  {18, 31, frontline},
                  {20, 31, frontline},
                  {22, 31, ground},
                  {60, 30, frontline},
                  {60, 32, frontline},
                  {60, 29, ground},
                  {60, 33, ground}});
    Show(4, 10, 20);  // middle (42, 42): 14 to 18
    Redraw();
    ExpectPixels({{23, 42, ground},
                  {24, 42, frontline},
                  {27, 42, frontline},
                  {28, 42, ground},
                  {80, 40, frontline},
                  {80, 43, frontline},
                  {80, 39, ground},
                  {80, 44, ground}});
    Show(10, 10, 20);  // middle (105, 105): 35 to 45
    Redraw();
    ExpectPixels({{59, 105, ground},
                  {60, 105, frontline},
                  {69, 105, frontline},
                  {70, 105, ground},
                  {200, 100, frontline},
                  {200, 109, frontline},
                  {200, 99, ground},
                  {200, 110, ground}});
    Show(100, 20, 30);  // middle (50, 50): 350 to 450
    Redraw();
    ExpectPixels({{50, 50, frontline},

                  {399, 50, frontline},
                  {401, 120, frontline},
                  {499, 49, frontline},
                  {499, 120, ground},
                  {380, 120, ground},
                  {50, 120, ground}});
}

TEST_F(FrontlineLayer, TheRingCanNeverMarkTheLastPoint) {
    EditPoint(2);
    Redraw();
    EXPECT_EQ(Count(frontline), 21 + 20);
    EditPoint(1);
    Redraw();
    EXPECT_GT(Count(frontline), 21 + 20);
    EXPECT_EQ(At(36, 34), ground);
    EXPECT_EQ(At(44, 30), frontline);
}

TEST_F(FrontlineLayer, TheRingIsSkippedWithItsSegment) {
    SetFrontline(0, {{19, 30}, {19, 31}, {40, 50}});
    EditPoint(0);
    Show(4, 20, 20);  // the ring would reach into the viewport
    Redraw();
    EXPECT_GT(Count(frontline), 0);  // the second segment
    EXPECT_EQ(At(12, 42), ground);
    SetFrontline(0, {{19, 30}, {20, 31}, {40, 50}});
    Redraw();
    EXPECT_EQ(At(12, 42), frontline);
}

TEST_F(FrontlineLayer, TheRingOfAPointOffScreenIsDrawnWhenItsSegmentIs) {
    SetFrontline(0, {{18, 30}, {30, 30}, {30, 31}});
    EditPoint(0);
    Show(10, 20, 20);  // middle (-15, 105): 35 to 45 reach 20 to 29
    Redraw();
    ExpectPixels(
        {{19, 99, ground}, {20, 98, frontline}, {29, 98, frontline}, {30, 98, ground}, {25, 115, frontline}});
}

TEST_F(FrontlineLayer, PointsOnMarkerRowsEndTheFrontline) {
    SetFrontline(0, {{20, 30}, {40, 30}, {40, 1759}});
    Redraw();
    EXPECT_EQ(Count(frontline), 21);
}

TEST_F(FrontlineLayer, WithLessThanTwoPointsDrawsNothing) {
    SetFrontline(0, {{20, 30}, {40, 1759}, {40, 1760}});
    EditPoint(0);
    Redraw();
    EXPECT_EQ(Count(frontline), 0);
}

TEST_F(FrontlineLayer, AllThirtyPointsAreDrawn) {
    for (int k = 0; k < 30; ++k) {
        campaign->FrontlineTable[3].points[static_cast<std::size_t>(k)].x =
            static_cast<std::int16_t>(200 + k * 2);
        campaign->FrontlineTable[3].points[static_cast<std::size_t>(k)].y = 100;
    }
    view.ViewFrontline = 3;
    Redraw();
    EXPECT_EQ(Count(frontline), 59);
}

TEST_F(FrontlineLayer, AFrontlineNumberAbove19StopsTheRedrawWithAnIndexError) {
    view.ViewFrontline = 20;
    ExpectIndexError(*this, "frontline");
    view.ViewFrontline = -1;
    ExpectIndexError(*this, "frontline");
    display.mnu_e_frontline = true;
    display.upd_frnt_num = 20;
    ExpectIndexError(*this, "frontline");
}

TEST_F(FrontlineLayer, ARingRadiusBeyond16BitsIsAnOverflow) {
    view.MapZoom = 8191;
    EXPECT_EQ(RingRadius(view), 32764);
    view.MapZoom = 8192;
    EXPECT_THROW(RingRadius(view), Error);
}

}  // namespace
}  // namespace vtr
