#include <gtest/gtest.h>

#include "MapScene.h"

namespace vtr {
namespace {

class TargetLayer : public testing::Test, public MapScene {
  protected:
    TargetLayer() {
        display.mnu_v_targets = true;
        display.upd_tar_code = 301;
    }

    /// A pixel of the ring around target 0 at (100, 50) at 100% that no X covers.
    bool RingShown() {
        Redraw();
        return At(104, 50) == target;
    }
};

TEST_F(TargetLayer, At100PercentATargetIsAnXFromOnePixelBeforeToOnePixelBehind) {
    SetTarget(0, 100, 50);
    Redraw();
    ExpectPixels({{99, 49, target},
                  {100, 50, target},
                  {101, 51, target},
                  {101, 49, target},
                  {99, 51, target},
                  {97, 50, ground},
                  {103, 50, ground},
                  {100, 47, ground},
                  {100, 53, ground},
                  {98, 48, ground},
                  {102, 52, ground}});
}

TEST_F(TargetLayer, At200PercentTheCentreIsAt201And101AndTheArmsReach2Pixels) {
    SetTarget(0, 100, 50);
    Show(2, 0, 0);
    Redraw();
    // Here the pen of 2 pixels runs along pixel corners. The X reaches 2 pixels and the pen's radius of 1.
    ExpectPixels({{200, 100, target},
                  {201, 101, target},
                  {199, 99, target},
                  {202, 102, target},
                  {199, 102, target},
                  {202, 99, target},
                  {198, 98, target},
                  {203, 103, target},
                  {197, 98, ground},
                  {204, 103, ground},
                  {201, 98, ground},
                  {198, 101, ground}});
}

TEST_F(TargetLayer, TheArmsReachAsFarAsAMapPixelIsWideAndThePenStays2Wide) {
    SetTarget(0, 12, 21);
    Show(3, 10, 20);  // centre (7.5, 4.5)
    Redraw();
    ExpectPixels({{7, 4, target},
                  {4, 1, target},
                  {10, 7, target},
                  {10, 1, target},
                  {4, 7, target},
                  {3, 0, ground},
                  {11, 8, ground},
                  {7, 1, ground},
                  {7, 7, ground}});
    Show(4, 10, 20);  // (10, 6)
    Redraw();
    ExpectPixels({{10, 6, target},
                  {6, 2, target},
                  {13, 9, target},
                  {13, 2, target},
                  {6, 9, target},
                  {4, 0, ground},
                  {15, 11, ground},
                  {10, 2, ground}});
    Show(10, 10, 20);  // (25, 15)
    Redraw();
    ExpectPixels({{25, 15, target},
                  {15, 5, target},
                  {34, 24, target},
                  {34, 5, target},
                  {15, 24, target},
                  {13, 3, ground},
                  {36, 26, ground},
                  {25, 5, ground},
                  {15, 15, ground},
                  {20, 10, target},
                  {20, 8, ground},
                  {20, 12, ground}});
    Show(100, 10, 20);  // (250, 150)
    Redraw();
    ExpectPixels({{250, 150, target},
                  {150, 50, target},
                  {349, 249, target},
                  {349, 50, target},
                  {150, 249, target},
                  {148, 48, ground},
                  {351, 251, ground},
                  {250, 140, ground},
                  {200, 100, target},
                  {200, 98, ground},
                  {200, 102, ground}});
}

TEST_F(TargetLayer, AirfieldsHaveTheirOwnColour) {
    SetTarget(0, 100, 50, true);
    SetTarget(1, 200, 50);
    SetTarget(2, 300, 50);
    campaign->TargetTable[2].airfield_mark = 1;
    Redraw();
    ExpectPixels({{100, 50, airfield}, {200, 50, target}, {300, 50, airfield}});
}

TEST_F(TargetLayer, All302TargetsAreDrawnTheLaterOnTop) {
    SetTarget(0, 100, 50);
    SetTarget(301, 100, 50, true);
    SetTarget(300, 200, 50);
    Redraw();
    ExpectPixels({{100, 50, airfield}, {200, 50, target}});
}

TEST_F(TargetLayer, MarkerRowsAreSkippedAndTheirNeighboursAreNot) {
    // A view far below the map, which shows those rows.
    Show(2, 0, 1758);
    for (const auto &[y, drawn] : {std::pair{1758, true}, {1759, false}, {1760, false}, {1761, true}}) {
        SetTarget(0, 30, y);
        Redraw();
        EXPECT_EQ(Count(target) > 0, drawn) << y;
    }
}

TEST_F(TargetLayer, TheSelectedTargetKeepsItsRingOnAMarkerRow) {
    Show(2, 0, 1750);
    SetTarget(0, 30, 1759);
    display.upd_tar_code = 0;
    view.TargetFlashPhase = true;
    Redraw();
    ExpectPixels({{61, 19, 0xFF000000}, {61 + 7, 19, target}, {61 - 8, 19, target}});
}

TEST_F(TargetLayer, TargetsOffScreenAreNotDrawnEvenWhereTheirArmsWouldReachIn) {
    SetTarget(0, 9, 50);
    Show(4, 10, 40);
    Redraw();
    EXPECT_EQ(Count(target), 0);
    SetTarget(0, 10, 50);
    Redraw();
    EXPECT_GT(Count(target), 0);
}

TEST_F(TargetLayer, ThreeRedrawsShowTheRingOnThe2ndOnlyWhenThePhaseStartedClear) {
    SetTarget(0, 100, 50);
    display.upd_tar_code = 0;
    EXPECT_FALSE(RingShown());
    EXPECT_TRUE(RingShown());
    EXPECT_FALSE(RingShown());
    EXPECT_TRUE(view.TargetFlashPhase);
}

TEST_F(TargetLayer, ThreeRedrawsShowTheRingOnThe1stAnd3rdWhenThePhaseStartedSet) {
    SetTarget(0, 100, 50);
    display.upd_tar_code = 0;
    view.TargetFlashPhase = true;
    EXPECT_TRUE(RingShown());
    EXPECT_FALSE(RingShown());
    EXPECT_TRUE(RingShown());
    EXPECT_FALSE(view.TargetFlashPhase);
}

TEST_F(TargetLayer, ShowNowDrawsTheRingWhateverThePhase) {
    SetTarget(0, 100, 50);
    display.upd_tar_code = 0;
    for (const bool phase : {false, true}) {
        view.TargetFlashPhase = phase;
        Redraw(true);
        EXPECT_EQ(At(104, 50), target);
        EXPECT_FALSE(view.TargetFlashPhase);
    }
}

TEST_F(TargetLayer, ThePhaseStaysWhileTheSelectedTargetIsOffScreenButShowNowStillSetsIt) {
    SetTarget(0, 100, 50);
    display.upd_tar_code = 0;
    Show(4, 300, 100);
    for (const bool phase : {false, true}) {
        view.TargetFlashPhase = phase;
        Redraw();
        EXPECT_EQ(view.TargetFlashPhase, phase);
    }
    view.TargetFlashPhase = false;
    Redraw(true);
    EXPECT_TRUE(view.TargetFlashPhase);
    EXPECT_EQ(Count(target), 0);
}

TEST_F(TargetLayer, ThePhaseStaysWhileTheLayerIsOff) {
    SetTarget(0, 100, 50);
    display.upd_tar_code = 0;
    display.mnu_v_targets = false;
    Redraw();
    EXPECT_FALSE(view.TargetFlashPhase);
    EXPECT_EQ(Count(target), 0);
}

TEST_F(TargetLayer, TheRingHasTheColourOfItsTargetAPenOf2AndARadiusOf4MapPixels) {
    SetTarget(0, 12, 21, true);
    display.upd_tar_code = 0;
    view.TargetFlashPhase = true;
    Show(10, 10, 20);  // centre (25, 15), radius 40
    Redraw();
    ExpectPixels({{63, 15, ground},
                  {64, 15, airfield},
                  {65, 15, airfield},
                  {66, 15, ground},
                  {25, 53, ground},
                  {25, 54, airfield},
                  {25, 55, airfield},
                  {25, 56, ground}});
    view.TargetFlashPhase = true;
    Show(100, 12, 21);  // (50, 50), radius 400
    Redraw();
    ExpectPixels({{448, 50, ground}, {449, 49, airfield}, {450, 50, airfield}, {451, 50, ground}});
}

TEST_F(TargetLayer, ASelectionOutsideTheTableIsAnIndexError) {
    for (const int selected : {302, -1}) {
        display.upd_tar_code = static_cast<std::int16_t>(selected);
        ExpectIndexError(*this, "target");
    }
}

}  // namespace
}  // namespace vtr
