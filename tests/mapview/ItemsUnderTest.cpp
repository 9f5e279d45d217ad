#include "ErrorThrownBy.h"
#include "ItemsUnder.h"
#include "MapScene.h"

namespace vtr {
namespace {

class ItemsUnderTest : public ::testing::Test {
  protected:
    ItemsUnderPixel At(int x, int y) const {
        return ItemsUnder(*scene.campaign, scene.view, scene.display, x, y);
    }
    void SetLine(std::size_t index, int x1, int y1, int x2, int y2) {
        scene.campaign->RailwayTable.at(index) = {.x1 = static_cast<std::int16_t>(x1),
                                                  .x2 = static_cast<std::int16_t>(x2),
                                                  .y1 = static_cast<std::int16_t>(y1),
                                                  .y2 = static_cast<std::int16_t>(y2)};
    }
    /// Every pixel of the viewport that shows map pixel (x, y) at the corners of it.
    std::vector<std::pair<int, int>> CornersOf(int x, int y) const {
        const int zoom = scene.view.MapZoom;
        const int left = (x - scene.view.h_scroll.Value) * zoom;
        const int top = (y - scene.view.v_scroll.Value) * zoom;
        return {
            {left, top}, {left + zoom - 1, top}, {left, top + zoom - 1}, {left + zoom - 1, top + zoom - 1}};
    }

    MapScene scene;
};

TEST_F(ItemsUnderTest, AllTargetsOfTheExactMapPixelAreThereAndNoneOfThePixelBesideIt) {
    scene.SetTarget(7, 101, 51);
    scene.SetTarget(300, 101, 51, true);
    scene.SetTarget(8, 102, 51);
    for (const int zoom : {1, 2, 7, 100}) {
        scene.Show(zoom, zoom == 1 ? 0 : 100, zoom == 1 ? 0 : 50);
        for (const auto &[x, y] : CornersOf(101, 51)) {
            EXPECT_EQ(At(x, y).targets, (std::vector{7, 300})) << x << "," << y << " at " << zoom;
        }
        for (const auto &[x, y] : CornersOf(101, 52))
            EXPECT_TRUE(At(x, y).targets.empty()) << x << "," << y << " at " << zoom;
    }
}

TEST_F(ItemsUnderTest, LinesAreThereUpToTwoPixelsFromWhereTheyAreDrawnAtEveryZoom) {
    SetLine(5, 104, 53, 125, 60);
    scene.display.mnu_v_railways = true;
    for (const int zoom : {1, 2, 5, 20}) {
        scene.Show(zoom, zoom == 1 ? 0 : 103, zoom == 1 ? 0 : 52);
        scene.Redraw();
        const int left = zoom == 1 ? 90 : 0;
        const int top = zoom == 1 ? 40 : 0;
        int told = 0;
        for (int y = top; y < top + 60; ++y) {
            for (int x = left; x < left + 100; ++x) {
                int nearest = 100;  // square of the distance to the nearest pixel of the line
                for (int dy = -4; dy <= 4; ++dy)
                    for (int dx = -4; dx <= 4; ++dx)
                        if (x + dx >= 0 && y + dy >= 0 && scene.At(x + dx, y + dy) == MapScene::railway)
                            nearest = std::min(nearest, dx * dx + dy * dy);
                const bool isThere = At(x, y).railwayLine.has_value();
                told += isThere ? 1 : 0;
                // A drawn pixel lies up to half a pixel beside the line.
                EXPECT_TRUE(isThere || nearest > 2) << x << "," << y << " at " << zoom;
                EXPECT_TRUE(!isThere || nearest < 9) << x << "," << y << " at " << zoom;
            }
        }
        EXPECT_GT(told, 100) << zoom;
    }
}

TEST_F(ItemsUnderTest, ALineEndsTwoPixelsBehindItsEnd) {
    SetLine(5, 100, 50, 120, 50);
    scene.display.mnu_v_railways = true;
    for (const int beside : {-2, 0, 2})
        EXPECT_EQ(At(110, 50 + beside).railwayLine, 5) << beside;
    EXPECT_EQ(At(98, 50).railwayLine, 5);
    EXPECT_EQ(At(122, 50).railwayLine, 5);
    for (const auto &[x, y] : {std::pair(110, 47), {110, 53}, {97, 50}, {123, 50}, {98, 48}})
        EXPECT_FALSE(At(x, y).railwayLine) << x << "," << y;
}

TEST_F(ItemsUnderTest, TheNearestLineIsThereAndOfSeveralTheFirst) {
    SetLine(5, 100, 50, 120, 50);
    SetLine(6, 100, 52, 120, 52);
    SetLine(7, 100, 52, 120, 52);
    scene.display.mnu_v_railways = true;
    EXPECT_EQ(At(110, 50).railwayLine, 5);
    EXPECT_EQ(At(110, 51).railwayLine, 5) << "both are one pixel away";
    EXPECT_EQ(At(110, 52).railwayLine, 6);
    EXPECT_EQ(At(110, 53).railwayLine, 6);
}

TEST_F(ItemsUnderTest, AnUnusedLineIsNowhere) {
    SetLine(5, 0, 0, 0, 0);
    scene.display.mnu_v_railways = true;
    EXPECT_FALSE(At(0, 0).railwayLine);
    SetLine(6, 0, 0, 9, 0);
    EXPECT_EQ(At(0, 0).railwayLine, 6);
}

TEST_F(ItemsUnderTest, OnlyTheLinesThatTheMapShowsAreThere) {
    for (const int line : {0, 1, 41, 42, 893})
        SetLine(static_cast<std::size_t>(line), 100, 10 * (line % 10 + 1), 120, 10 * (line % 10 + 1));
    const auto lineAt = [this](int line) { return At(110, 10 * (line % 10 + 1)).railwayLine; };
    EXPECT_FALSE(lineAt(41)) << "the layer is hidden";
    scene.display.mnu_v_railways = true;
    for (const int line : {0, 1, 42, 893})
        EXPECT_TRUE(lineAt(line)) << line;
    scene.display.upd_view_railway = 21;
    EXPECT_EQ(lineAt(41), 1) << "line 1 lies there too";
    EXPECT_FALSE(lineAt(42));
    EXPECT_FALSE(lineAt(0));
    scene.display.mnu_e_railway = true;
    scene.display.upd_rail_linenum = 30;
    EXPECT_EQ(lineAt(41), 41);
    EXPECT_EQ(lineAt(42), 42);
    scene.display.upd_rail_linenum = 0;
    EXPECT_EQ(lineAt(1), 1);
    EXPECT_FALSE(lineAt(0));
}

TEST_F(ItemsUnderTest, TheShownFrontlineIsThereAndItsPointsOnTheExactPixel) {
    scene.SetFrontline(3, {{100, 50}, {110, 50}, {120, 60}, {110, 50}});
    scene.SetFrontline(4, {{200, 50}, {210, 50}});
    EXPECT_FALSE(At(110, 50).frontline);
    scene.display.mnu_v_frontlines = true;
    scene.view.ViewFrontline = 3;
    using Course = ItemsUnderPixel::Course;
    EXPECT_EQ(At(110, 50).frontline, (Course{3, {1, 3}}));
    EXPECT_EQ(At(110, 51).frontline, (Course{3, {}}));
    EXPECT_FALSE(At(200, 50).frontline);
    scene.display.mnu_e_frontline = true;
    scene.display.upd_frnt_num = 4;
    EXPECT_EQ(At(200, 50).frontline, (Course{4, {0}}));
    EXPECT_FALSE(At(110, 50).frontline);
}

TEST_F(ItemsUnderTest, APointIsThereOnAllOfItsMapPixelHoweverLarge) {
    scene.SetFrontline(3, {{101, 51}, {103, 53}});
    scene.display.mnu_v_frontlines = true;
    scene.view.ViewFrontline = 3;
    for (const int zoom : {2, 20, 50, 100}) {
        scene.Show(zoom, 100, 50);
        for (const auto &[x, y] : CornersOf(101, 51))
            EXPECT_EQ(At(x, y).frontline, (ItemsUnderPixel::Course{3, {0}}))
                << x << "," << y << " at " << zoom;
    }
}

TEST_F(ItemsUnderTest, TheShownPathsAreThereAndTheirWaypointsOnTheExactPixel) {
    using Course = ItemsUnderPixel::Course;
    scene.SetPath(scene.campaign->RoadWaypointTable[0], {{100, 50}, {110, 50}});
    scene.SetPath(scene.campaign->RoadWaypointTable[296], {{100, 80}, {110, 80}, {120, 90}});
    scene.SetPath(scene.campaign->RailWaypointTable[98], {{100, 81}, {110, 81}, {120, 91}});
    EXPECT_EQ(At(110, 80), ItemsUnderPixel{});
    scene.display.mnu_v_roadint = true;
    EXPECT_EQ(At(110, 80).roadPath, (Course{296, {1}}));
    EXPECT_FALSE(At(110, 80).railPath);
    scene.display.mnu_v_railint = true;
    EXPECT_EQ(At(110, 81).roadPath, (Course{296, {}}));
    EXPECT_EQ(At(110, 81).railPath, (Course{98, {1}}));
    scene.display.upd_view_roadint = 1;
    scene.display.upd_view_railint = 98;
    EXPECT_EQ(At(110, 80), ItemsUnderPixel{});
    EXPECT_EQ(At(110, 50).roadPath, (Course{0, {1}}));
    scene.display.upd_view_railint = 99;
    EXPECT_EQ(At(110, 81).railPath, (Course{98, {1}}));
}

TEST_F(ItemsUnderTest, ASegmentThatIsNotDrawnAsBothItsEndsAreOutOfViewIsNotThere) {
    SetLine(5, 90, 50, 500, 50);
    SetLine(6, 105, 55, 500, 55);
    scene.display.mnu_v_railways = true;
    EXPECT_EQ(At(300, 50).railwayLine, 5);
    scene.Show(10, 100, 45);
    EXPECT_FALSE(At(300, 55).railwayLine);
    EXPECT_EQ(At(300, 105).railwayLine, 6);
}

TEST_F(ItemsUnderTest, ASelectionOutsideItsTableIsAnIndexError) {
    scene.display.mnu_v_railways = true;
    scene.display.upd_view_railway = 894;
    EXPECT_EQ(KindThrownBy([&] { At(1, 1); }), ErrorKind::IndexOutOfRange);
    scene.display.upd_view_railway = 0;
    scene.display.mnu_v_roadint = true;
    scene.display.upd_view_roadint = 298;
    EXPECT_EQ(KindThrownBy([&] { At(1, 1); }), ErrorKind::IndexOutOfRange);
    scene.display.upd_view_roadint = 0;
    scene.display.mnu_v_frontlines = true;
    scene.view.ViewFrontline = 20;
    EXPECT_EQ(KindThrownBy([&] { At(1, 1); }), ErrorKind::IndexOutOfRange);
}

}  // namespace
}  // namespace vtr
