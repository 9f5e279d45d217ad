#include <gtest/gtest.h>

#include "MapView.h"

namespace vtr {
namespace {

TEST(ZoomText, IsTheFactorInPercent) {
    MapView view;
    for (const auto &[zoom, text] : {std::pair{1, "100%"}, {3, "300%"}, {100, "10000%"}}) {
        view.MapZoom = static_cast<std::int16_t>(zoom);
        EXPECT_EQ(ZoomText(view), text);
    }
}

TEST(CursorText, HasALeadingBlankForNumbersThatAreNotNegative) {
    MapView view;
    view.MapZoom = 1;
    EXPECT_EQ(CursorText(view, 312, 97), "( 312,  97)");
    EXPECT_EQ(CursorText(view, 0, 0), "( 0,  0)");
    EXPECT_EQ(CursorText(view, -1, 319), "(-1,  319)");
    EXPECT_EQ(CursorText(view, -0.F, -20), "( 0, -20)");
}

TEST(CursorText, At100PercentShowsTheRawEventCoordinates) {
    MapView view;
    view.MapZoom = 1;
    EXPECT_EQ(CursorText(view, 0.1F, 319.75F), "( 0.1,  319.75)");
}

TEST(CursorText, AtFactor2WithHScroll100OverScreenX7Shows103) {
    MapView view;
    view.MapZoom = 2;
    view.h_scroll.Value = 100;
    EXPECT_EQ(CursorText(view, 7, 9), "( 103,  4)");
}

}  // namespace
}  // namespace vtr
