#include <gtest/gtest.h>

#include "MapRedraw.h"
#include "MapScene.h"

namespace vtr {
namespace {

class MapRedraw : public testing::Test, public MapScene {
  protected:
    /// Every layer crosses (50, 50).
    void CrossAllLayers() {
        SetFrontline(0, {{40, 50}, {60, 50}});
        campaign->RailwayTable[0] = {.x1 = 50, .x2 = 50, .y1 = 40, .y2 = 60};
        SetPath(campaign->RoadWaypointTable[0], {{40, 40}, {60, 60}});
        SetPath(campaign->RailWaypointTable[0], {{40, 60}, {60, 40}});
        SetTarget(0, 50, 50);
        SetTarget(301, 50, 300);
        display.upd_tar_code = 301;
    }
};

TEST_F(MapRedraw, PaintsTheLayersInTheOrderFrontlineRailwayRoadRailTargets) {
    CrossAllLayers();
    const std::array<std::pair<bool *, std::uint32_t>, 5> layers{{{&display.mnu_v_frontlines, frontline},
                                                                  {&display.mnu_v_railways, railway},
                                                                  {&display.mnu_v_roadint, roadInt},
                                                                  {&display.mnu_v_railint, railInt},
                                                                  {&display.mnu_v_targets, target}}};
    Redraw();
    EXPECT_EQ(Count(ground), 640 * 320);
    for (const auto &[toggle, colour] : layers) {
        *toggle = true;
        Redraw();
        EXPECT_EQ(At(50, 50), colour);
    }
    // Each layer shows beside the crossing. With the others hidden it shows alone.
    ExpectPixels({{42, 50, frontline}, {50, 42, railway}, {42, 42, roadInt}, {42, 58, railInt}});
    for (const auto &layer : layers) {
        for (const auto &other : layers)
            *other.first = other.first == layer.first;
        Redraw();
        EXPECT_EQ(Count(ground) + Count(layer.second), 640 * 320);
        EXPECT_GT(Count(layer.second), 0);
    }
}

TEST_F(MapRedraw, ErasesEverythingDrawnBefore) {
    CrossAllLayers();
    display.mnu_v_railways = true;
    Redraw();
    display.mnu_v_railways = false;
    Redraw();
    EXPECT_EQ(Count(ground), 640 * 320);
}

TEST_F(MapRedraw, ShowsThePartOfThePictureThatTheScrollValuesName) {
    worldMap.pixels[100 * 640 + 200] = 0xFF123456;
    Redraw();
    EXPECT_EQ(At(200, 100), 0xFF123456);
    Show(10, 190, 95);
    Redraw();
    EXPECT_EQ(Count(0xFF123456), 100);
    ExpectPixels({{100, 50, 0xFF123456}, {109, 59, 0xFF123456}, {110, 50, ground}, {99, 50, ground}});
}

TEST_F(MapRedraw, APictureOfAnotherSizeKeepsItsPixelsAtMapCoordinatesAndIsBlackBeyond) {
    worldMap = {100, 400, std::vector<std::uint32_t>(100 * 400, 0xFF445566)};
    Redraw();
    ExpectPixels({{99, 319, 0xFF445566}, {100, 0, 0xFF000000}});
    EXPECT_EQ(Count(0xFF445566), 100 * 320);
}

TEST_F(MapRedraw, ReadsTheScrollValuesAndLeavesTheViewAsItIsButForTheFlashPhase) {
    Show(4, 100, 50);
    view.MapCenterX = 180;
    const MapView before = view;
    Redraw();
    EXPECT_EQ(view, before);
}

TEST_F(MapRedraw, BeforeTheFirstProjectLoadTheSurfaceIsBlack) {
    CrossAllLayers();
    display.mnu_v_railways = true;
    view.MapZoom = 0;
    EXPECT_EQ(Redraw(), std::nullopt);
    EXPECT_EQ(Count(0xFF000000), 640 * 320);
}

TEST_F(MapRedraw, AnIndexErrorStopsItBeforeTheLaterLayers) {
    CrossAllLayers();
    display.mnu_v_frontlines = display.mnu_v_railways = display.mnu_v_targets = true;
    view.ViewFrontline = 20;
    ExpectIndexError(*this, "frontline");
    EXPECT_EQ(Count(ground), 640 * 320);
    display.mnu_v_frontlines = false;
    Redraw();
    EXPECT_EQ(At(50, 50), target);
}

TEST_F(MapRedraw, AHiddenLayerReadsNothingItSelects) {
    view.ViewFrontline = 99;
    display.upd_view_roadint = 999;
    display.upd_view_railway = 999;
    display.upd_tar_code = 999;
    EXPECT_NO_THROW(Redraw());
}

TEST_F(MapRedraw, TakesColoursAsRedPlus256GreenPlus65536Blue) {
    CrossAllLayers();
    display.mnu_v_railways = true;
    preferences.RailwayColour = 0x12 + 256 * 0x34 + 65536 * 0x56;
    Redraw();
    EXPECT_EQ(At(50, 45), 0xFF123456);
}

}  // namespace
}  // namespace vtr
