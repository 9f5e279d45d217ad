#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Errors.h"
#include "MapCoordinates.h"
#include "ViewAt.h"

namespace vtr {
namespace {

TEST(ScreenToMap, At100PercentGivesTheScreenPointUnchangedAndUnrounded) {
    const MapPoint point = ScreenToMap(ViewAt(1, 0, 0), 12.75F, -3.5F);
    EXPECT_EQ(point.x, 12.75F);
    EXPECT_EQ(point.y, -3.5F);
}

TEST(ScreenToMap, AtFactor2OverScreenX7AndOrigin100GivesX103) {
    EXPECT_EQ(ScreenToMap(ViewAt(2, 100, 0), 7, 0).x, 103);
}

TEST(ScreenToMap, CutsTowardsMinusInfinity) {
    EXPECT_EQ(ScreenToMap(ViewAt(3, 0, 0), -1, -3.5F).x, -1);
    EXPECT_EQ(ScreenToMap(ViewAt(3, 0, 0), -1, -3.5F).y, -2);
    EXPECT_EQ(ScreenToMap(ViewAt(100, 633, 317), 639, 319).x, 639);
    EXPECT_EQ(ScreenToMap(ViewAt(100, 633, 317), 639, 319).y, 320);  // the bar's range is rounded up to 317
}

TEST(ScreenToMap, OfNoNumberIsAnOverflow) {
    EXPECT_THROW(ScreenToMap(ViewAt(2, 0, 0), std::numeric_limits<float>::quiet_NaN(), 0), Error);
    EXPECT_THROW(ScreenToMap(ViewAt(2, 0, 0), 0, 1e20F), Error);
}

TEST(MapToScreen, At100PercentLeavesThePointAndAlwaysReportsItVisible) {
    for (const float x : {-32768.F, -1.F, 0.F, 639.F, 640.F, 32767.F}) {
        const ScreenPoint point = MapToScreen(ViewAt(1, 0, 0), x, 1760);
        EXPECT_EQ(point.x, x);
        EXPECT_EQ(point.y, 1760);
        EXPECT_TRUE(point.visible);
    }
}

TEST(MapToScreen, LandsInTheMiddleOfTheMagnifiedPixel) {
    const ScreenPoint twice = MapToScreen(ViewAt(2, 0, 0), 100, 50);
    EXPECT_EQ(twice.x, 201);
    EXPECT_EQ(twice.y, 101);
    const ScreenPoint thrice = MapToScreen(ViewAt(3, 90, 45), 100, 50);
    EXPECT_EQ(thrice.x, 31.5F);
    EXPECT_EQ(thrice.y, 16.5F);
}

TEST(MapToScreen, At200PercentAPointOnScreenPixel639IsVisibleAndOneAt640IsNot) {
    const MapView view = ViewAt(2, 0, 0);
    EXPECT_TRUE(MapToScreen(view, 319, 0).visible);  // 639
    EXPECT_TRUE(MapToScreen(view, 319.25F, 0).visible);
    EXPECT_EQ(MapToScreen(view, 319.25F, 0).x, 639.5F);
    EXPECT_FALSE(MapToScreen(view, 319.5F, 0).visible);  // 640
    EXPECT_FALSE(MapToScreen(view, 320, 0).visible);
    EXPECT_TRUE(MapToScreen(view, 0, 159).visible);
    EXPECT_FALSE(MapToScreen(view, 0, 160).visible);
}

TEST(MapToScreen, AtFactor3Row106IsVisibleThoughItsMiddleAt319AndAHalfIsBeyond319BecauseItsPixelIsShown) {
    const MapView view = ViewAt(3, 0, 0);
    EXPECT_EQ(MapToScreen(view, 0, 106).y, 319.5F);
    EXPECT_TRUE(MapToScreen(view, 0, 106).visible);
    EXPECT_FALSE(MapToScreen(view, 0, 107).visible);  // 322.5
}

TEST(MapToScreen, ReportsPointsLeftOfOrAboveTheViewportOffScreen) {
    const MapView view = ViewAt(2, 100, 50);
    EXPECT_TRUE(MapToScreen(view, 100, 50).visible);
    EXPECT_FALSE(MapToScreen(view, 99, 50).visible);  // -1
    EXPECT_FALSE(MapToScreen(view, 100, 49).visible);
}

TEST(MapToScreen, IsExactForTheFarthestPositionsAtTheLargestZoom) {
    const ScreenPoint point = MapToScreen(ViewAt(100, 634, 317), -32768, 32767);
    EXPECT_EQ(point.x, -3340150);
    EXPECT_EQ(point.y, 3245050);
}

TEST(PlaceUnder, IsTheMapUnderTheMiddleOfTheScreenPixel) {
    EXPECT_EQ(PlaceUnder(ViewAt(1, 0, 0), 12, 7).x, 12.5);
    EXPECT_EQ(PlaceUnder(ViewAt(1, 0, 0), 12, 7).y, 7.5);
    EXPECT_EQ(PlaceUnder(ViewAt(4, 100, 50), 6, -2).x, 101.625);
    EXPECT_EQ(PlaceUnder(ViewAt(4, 100, 50), 6, -2).y, 49.625);
}

TEST(MapCoordinates, EveryScreenPixelOfAMagnifiedPixelGoesBackToIt) {
    for (int zoom = 2; zoom <= 100; ++zoom) {
        const MapView view = ViewAt(zoom, 17, 5);
        for (int map = 17; map < 17 + 640 / zoom; ++map) {
            const ScreenPoint middle = MapToScreen(view, static_cast<float>(map), 5);
            EXPECT_TRUE(middle.visible);
            EXPECT_EQ(ScreenToMap(view, middle.x, middle.y).x, map);
            EXPECT_EQ(ScreenToMap(view, static_cast<float>((map - 17) * zoom), 0).x, map);
            EXPECT_EQ(ScreenToMap(view, static_cast<float>((map - 16) * zoom - 1), 0).x, map);
        }
    }
}

}  // namespace
}  // namespace vtr
