#include <gtest/gtest.h>

#include "MapScene.h"

namespace vtr {
namespace {

class RailwayLayer : public testing::Test, public MapScene {
  protected:
    RailwayLayer() { display.mnu_v_railways = true; }

    /// Line i from (x, y) to (x + 2, y).
    void SetLine(int i, int x, int y) {
        campaign->RailwayTable.at(static_cast<std::size_t>(i)) = {.x1 = static_cast<std::int16_t>(x),
                                                                  .x2 = static_cast<std::int16_t>(x + 2),
                                                                  .y1 = static_cast<std::int16_t>(y),
                                                                  .y2 = static_cast<std::int16_t>(y)};
    }
    /// Puts line i at the left of cell (i % 60, i / 60) of 10 by 10 map pixels, so that no two lines touch.
    void SpreadLines() {
        for (int i = 0; i < 894; ++i)
            SetLine(i, i % 60 * 10, i / 60 * 10);
    }
    std::uint32_t ColourOfLine(int i) const { return At(i % 60 * 10 + 1, i / 60 * 10); }

    void ExpectNeighbourhood(int first, int last, int highlighted) {
        for (int i = 0; i < 894; ++i)
            EXPECT_EQ(ColourOfLine(i), i < first || i > last ? ground
                                       : i == highlighted    ? yellow
                                                             : railway)
                << "line " << i;
    }
};

TEST_F(RailwayLayer, ALineOf100PercentIsOnePixelWideBothEndsIncluded) {
    SetLine(0, 10, 20);
    Redraw();
    ExpectPixels({{9, 20, ground},
                  {10, 20, railway},
                  {11, 20, railway},
                  {12, 20, railway},
                  {13, 20, ground},
                  {11, 19, ground},
                  {11, 21, ground}});
    EXPECT_EQ(Count(railway), 3);
}

TEST_F(RailwayLayer, AMagnifiedLineCoversTheMagnifiedPixelsItRunsOver) {
    SetLine(0, 10, 20);
    Show(2, 8, 19);
    Redraw();
    ExpectPixels({{3, 2, ground},
                  {4, 2, railway},
                  {4, 3, railway},
                  {9, 2, railway},
                  {9, 3, railway},
                  {10, 3, ground},
                  {7, 1, ground},
                  {7, 4, ground}});
    Show(3, 8, 19);
    Redraw();
    ExpectPixels({{5, 4, ground},
                  {6, 4, railway},
                  {14, 4, railway},
                  {15, 4, ground},
                  {10, 2, ground},
                  {10, 3, railway},
                  {10, 5, railway},
                  {10, 6, ground}});
    Show(4, 8, 19);
    Redraw();
    ExpectPixels({{7, 5, ground},
                  {8, 5, railway},
                  {19, 6, railway},
                  {20, 6, ground},
                  {8, 4, ground},  // the round end
                  {19, 7, ground},
                  {14, 3, ground},
                  {14, 4, railway},
                  {14, 7, railway},
                  {14, 8, ground}});
    Show(10, 8, 19);
    Redraw();
    ExpectPixels({{19, 15, ground},
                  {20, 15, railway},
                  {49, 14, railway},
                  {50, 14, ground},
                  {20, 10, ground},
                  {49, 19, ground},
                  {35, 9, ground},
                  {35, 10, railway},
                  {35, 19, railway},
                  {35, 20, ground}});
    Show(100, 8, 19);
    Redraw();
    ExpectPixels({{199, 150, ground},
                  {200, 150, railway},
                  {499, 149, railway},
                  {500, 149, ground},
                  {200, 100, ground},
                  {210, 110, ground},  // 40 * sqrt(2) from the end (250, 150)
                  {216, 116, railway},
                  {499, 199, ground},
                  {350, 99, ground},
                  {350, 100, railway},
                  {350, 199, railway},
                  {350, 200, ground}});
}

TEST_F(RailwayLayer, ASegmentIsDrawnWhenOneEndIsOnScreenAndNotWhenBothAreOff) {
    campaign->RailwayTable[5] = {.x1 = 10, .x2 = 600, .y1 = 20, .y2 = 20};
    Show(4, 0, 0);
    Redraw();
    ExpectPixels({{40, 81, railway}, {639, 81, railway}});
    Show(4, 480, 0);
    Redraw();
    ExpectPixels({{0, 81, railway}, {480, 81, railway}});
    // It crosses this viewport from edge to edge, but neither end is in it.
    Show(4, 200, 0);
    Redraw();
    EXPECT_EQ(Count(railway), 0);
}

TEST_F(RailwayLayer, At100PercentNothingIsSkippedHoweverFarItsEndsLie) {
    campaign->RailwayTable[5] = {.x1 = -32768, .x2 = 32767, .y1 = 7, .y2 = 7};
    campaign->RailwayTable[6] = {.x1 = 9, .x2 = 9, .y1 = -32768, .y2 = 32767};
    Redraw();
    EXPECT_EQ(Count(railway), 640 + 320 - 1);
}

TEST_F(RailwayLayer, TheFarthestEndAtTheLargestZoomIsNoOverflow) {
    campaign->RailwayTable[5] = {.x1 = 634, .x2 = -32768, .y1 = 317, .y2 = 32767};
    Show(100, 634, 317);
    Redraw();
    EXPECT_EQ(At(50, 50), railway);
    // It falls to the left by 32450 in 33402 and leaves through the left edge below row 98.
    EXPECT_EQ(At(0, 98), railway);
    EXPECT_EQ(At(200, 200), ground);
}

TEST_F(RailwayLayer, AllLinesAreDrawnInTheRailwayColour) {
    SpreadLines();
    Redraw();
    ExpectNeighbourhood(0, 893, -1);
}

TEST_F(RailwayLayer, InRailwayEditModeOnLine10Lines1To30AreDrawnLine10InYellow) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 10;
    Redraw();
    ExpectNeighbourhood(1, 30, 10);
}

TEST_F(RailwayLayer, InRailwayEditModeOnLine0Lines1To20AreDrawnNoneHighlighted) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 0;
    Redraw();
    ExpectNeighbourhood(1, 20, -1);
}

TEST_F(RailwayLayer, InRailwayEditModeOnLine1TheHighlightedLineIsTheFirstDrawn) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 1;
    Redraw();
    ExpectNeighbourhood(1, 21, 1);
}

TEST_F(RailwayLayer, InRailwayEditModeOnLine892TheHighlightedLineIsTheLastDrawn) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 892;
    Redraw();
    ExpectNeighbourhood(872, 892, 892);
}

TEST_F(RailwayLayer, InRailwayEditModeOnLine893Lines873To892AreDrawnNoneHighlighted) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 893;
    Redraw();
    ExpectNeighbourhood(873, 892, -1);
}

TEST_F(RailwayLayer, OutsideRailwayEditModeTheViewNumberIsTheLineItselfAnd0IsAll) {
    SpreadLines();
    display.upd_rail_linenum = 500;
    display.upd_view_railway = 100;
    Redraw();
    ExpectNeighbourhood(80, 120, 100);
    display.upd_view_railway = 0;
    Redraw();
    ExpectNeighbourhood(0, 893, -1);
}

TEST_F(RailwayLayer, TheEditModeGoesBeforeTheViewNumber) {
    SpreadLines();
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 500;
    display.upd_view_railway = 100;
    Redraw();
    ExpectNeighbourhood(480, 520, 500);
}

TEST_F(RailwayLayer, TheHighlightKeepsItsPlaceInTheOrderOfTheLines) {
    for (const int i : {99, 100, 101})
        SetLine(i, 50, 60);
    display.upd_view_railway = 100;
    Redraw();
    EXPECT_EQ(At(51, 60), railway);  // line 101 lies over it
    display.upd_view_railway = 101;
    Redraw();
    EXPECT_EQ(At(51, 60), yellow);
}

TEST_F(RailwayLayer, ALineNumberOutsideTheTableIsAnIndexError) {
    display.mnu_e_railway = true;
    display.upd_rail_linenum = 894;
    ExpectIndexError(*this, "railway line");
    display.upd_rail_linenum = -1;
    ExpectIndexError(*this, "railway line");
}

TEST_F(RailwayLayer, WithNoDisabledLineTheLabelReadsNoLinesDisabled) {
    EXPECT_EQ(Redraw(), "No Lines disabled");
    campaign->firstDisabledRailwayLine = 850;
    EXPECT_EQ(Redraw(), "Lines 850+ Disabled");
    display.mnu_e_railway = true;
    EXPECT_EQ(Redraw(), "Lines 850+ Disabled");
    display.mnu_v_railways = false;
    EXPECT_EQ(Redraw(), std::nullopt);
}

TEST_F(RailwayLayer, DisabledLinesAreDrawnLikeTheOthers) {
    SpreadLines();
    campaign->firstDisabledRailwayLine = 5;
    Redraw();
    ExpectNeighbourhood(0, 893, -1);
}

}  // namespace
}  // namespace vtr
