#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "Errors.h"
#include "ExpectedView.h"
#include "FakeScrollBars.h"
#include "MapCoordinates.h"
#include "ZoomCommands.h"

namespace vtr {
namespace {

using testing::ElementsAre;

TEST(ZoomTo100, FromAnyZoomShowsTheWholeMapAndHidesTheRectangle) {
    for (const int zoom : {1, 2, 3, 57, 100}) {
        ScrolledView scrolled;
        scrolled.ZoomTo(zoom);
        scrolled.horizontal.SetValue(600);
        scrolled.vertical.SetValue(3);
        ZoomTo100(scrolled.view, scrolled.Bars());
        EXPECT_EQ(scrolled.view.MapZoom, 1);
        EXPECT_EQ(scrolled.horizontal.value, 0);
        EXPECT_EQ(scrolled.vertical.value, 0);
        EXPECT_EQ(scrolled.view.h_scroll, (ScrollState{.Value = 0, .Max = 0, .LargeChange = 640}));
        EXPECT_EQ(scrolled.view.v_scroll, (ScrollState{.Value = 0, .Max = 0, .LargeChange = 320}));
        EXPECT_EQ(scrolled.view.MapCenterX, 320);
        EXPECT_EQ(scrolled.view.MapCenterY, 160);
        EXPECT_FALSE(scrolled.view.shp_area.Visible);
        EXPECT_EQ(scrolled.view.zoomMenu,
                  (ZoomMenuState{.inEnabled = true, .outEnabled = false, .checked100 = true}));
    }
}

TEST(ZoomTo100, SetsTheScrollBarsInTheGivenOrder) {
    ScrolledView scrolled;
    scrolled.LoadProject();
    EXPECT_THAT(scrolled.calls, ElementsAre("v_scroll.LargeChange := 320", "h_scroll.LargeChange := 640",
                                            "v_scroll.Max := 0", "h_scroll.Max := 0"));
}

TEST(ZoomIn, RightAfterAProjectLoadShowsTheMiddleQuarter) {
    ScrolledView scrolled;
    scrolled.LoadProject();
    scrolled.calls.clear();
    ZoomIn(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapZoom, 2);
    EXPECT_EQ(scrolled.view.h_scroll, (ScrollState{.Value = 160, .Max = 320, .LargeChange = 320}));
    EXPECT_EQ(scrolled.view.v_scroll, (ScrollState{.Value = 80, .Max = 160, .LargeChange = 160}));
    EXPECT_EQ(scrolled.view.shp_area,
              (OverviewRectangle{.Visible = true, .Left = 40, .Top = 20, .Width = 80, .Height = 40}));
    EXPECT_FALSE(scrolled.view.ScrollSyncSuspended);
    EXPECT_THAT(scrolled.calls, ElementsAre("v_scroll.LargeChange := 160", "h_scroll.LargeChange := 320",
                                            "v_scroll.Max := 160", "h_scroll.Max := 320",
                                            "h_scroll.Value := 160", "v_scroll.Value := 80"));
}

TEST(ZoomIn, From3To4LeavesThe400EntryUncheckedButItsOwnCommandChecksIt) {
    ScrolledView scrolled;
    scrolled.ZoomTo(3);
    ZoomIn(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapZoom, 4);
    EXPECT_EQ(scrolled.view.zoomMenu, ZoomMenuState{});
    ZoomTo400(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapZoom, 4);
    EXPECT_EQ(scrolled.view.zoomMenu, ZoomMenuState{.checked400 = true});
}

TEST(ZoomIn, At99Gives100AndDisablesItself) {
    ScrolledView scrolled;
    scrolled.ZoomTo(99);
    EXPECT_TRUE(scrolled.view.zoomMenu.inEnabled);
    ZoomIn(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapZoom, 100);
    EXPECT_FALSE(scrolled.view.zoomMenu.inEnabled);
    EXPECT_TRUE(scrolled.view.zoomMenu.outEnabled);
    EXPECT_EQ(scrolled.view.h_scroll.Max, 634);  // 633.6
    EXPECT_EQ(scrolled.view.v_scroll.Max, 317);  // 316.8
    EXPECT_EQ(scrolled.view.h_scroll.LargeChange, 6);
    EXPECT_EQ(scrolled.view.v_scroll.LargeChange, 3);
    ZoomOut(scrolled.view, scrolled.Bars());
    EXPECT_TRUE(scrolled.view.zoomMenu.inEnabled);
}

TEST(ZoomIn, BeyondTheLargestFactorOf16BitsIsAnOverflow) {
    ScrolledView scrolled;
    scrolled.view.MapZoom = 32767;
    EXPECT_THROW(ZoomIn(scrolled.view, scrolled.Bars()), Error);
    EXPECT_EQ(scrolled.view.MapZoom, 32767);
}

TEST(ZoomOut, At2Gives1DisablesItselfSetsBothValuesTo0AndLeavesTheRectangleShown) {
    ScrolledView scrolled;
    scrolled.ZoomTo(2);
    ZoomOut(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapZoom, 1);
    EXPECT_EQ(scrolled.view.zoomMenu, (ZoomMenuState{.inEnabled = true, .outEnabled = false}));
    EXPECT_EQ(scrolled.horizontal.value, 0);
    EXPECT_EQ(scrolled.vertical.value, 0);
    EXPECT_EQ(scrolled.view.shp_area,
              (OverviewRectangle{.Visible = true, .Left = 0, .Top = 0, .Width = 160, .Height = 80}));
}

TEST(ZoomOut, To100KeepsACentreThatNoScrollValueTouched) {
    ScrolledView scrolled;
    scrolled.ZoomTo(2);
    scrolled.horizontal.SetValue(0);
    EXPECT_EQ(scrolled.view.MapCenterX, 160);
    ZoomOut(scrolled.view, scrolled.Bars());
    // The horizontal value was and stays 0. The maximum of 0 has moved the vertical one.
    EXPECT_EQ(scrolled.view.MapCenterX, 160);
    EXPECT_EQ(scrolled.view.MapCenterY, 160);
    ZoomIn(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.horizontal.value, 0);
}

TEST(ZoomCommands, Factor3RoundsItsRangesAndSteps) {
    ScrolledView scrolled;
    scrolled.ZoomTo(3);
    EXPECT_EQ(scrolled.view.h_scroll.Max, 427);
    EXPECT_EQ(scrolled.view.h_scroll.LargeChange, 213);
    EXPECT_EQ(scrolled.view.v_scroll.Max, 213);
    EXPECT_EQ(scrolled.view.v_scroll.LargeChange, 107);
}

TEST(ZoomCommands, HalfwayValuesRoundToTheEvenNeighbour) {
    ScrolledView scrolled;
    scrolled.ZoomTo(64);  // 640 / 64 = 10 and 320 / 64 = 5 map pixels; rectangle 2.5 by 1.25
    EXPECT_EQ(scrolled.view.shp_area.Width, 2);
    EXPECT_EQ(scrolled.view.shp_area.Height, 1);
    scrolled.view.MapCenterY = 100;  // 100 - 2.5 = 97.5
    ZoomIn(scrolled.view, scrolled.Bars());
    scrolled.view.MapCenterY = 100;
    ZoomOut(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.vertical.value, 98);
    scrolled.horizontal.SetValue(2);  // 0.5 and 1.5 overview pixels
    EXPECT_EQ(scrolled.view.shp_area.Left, 0);
    scrolled.horizontal.SetValue(6);
    EXPECT_EQ(scrolled.view.shp_area.Left, 2);
}

TEST(ZoomCommands, KeepTheCentreWhereTheMapReaches) {
    ScrolledView scrolled;
    scrolled.ZoomTo(10);
    scrolled.horizontal.SetValue(100);
    scrolled.vertical.SetValue(50);
    EXPECT_EQ(scrolled.view.MapCenterX, 132);
    EXPECT_EQ(scrolled.view.MapCenterY, 66);
    ZoomTo400(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapCenterX, 132);
    EXPECT_EQ(scrolled.view.MapCenterY, 66);
    EXPECT_EQ(scrolled.horizontal.value, 52);
    EXPECT_EQ(scrolled.vertical.value, 26);
}

TEST(ZoomCommands, AMaximumLoweredBelowTheValueSetsTheCentreAnewFromTheClampedValue) {
    ScrolledView scrolled;
    scrolled.ZoomTo(4);
    scrolled.horizontal.SetValue(480);
    EXPECT_EQ(scrolled.view.MapCenterX, 560);
    ZoomTo200(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.view.MapCenterX, 480);  // 160 + 320, not 560
    EXPECT_EQ(scrolled.horizontal.value, 320);
}

TEST(ZoomCommands, AViewOriginLeftOfOrAboveTheMapIsRaisedTo0) {
    ScrolledView scrolled;
    scrolled.ZoomTo(4);
    scrolled.horizontal.SetValue(0);
    scrolled.vertical.SetValue(0);
    EXPECT_EQ(scrolled.view.MapCenterX, 80);
    ZoomTo200(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.calls.back(), "v_scroll.Value := 0");
    EXPECT_EQ(scrolled.horizontal.value, 0);
    EXPECT_EQ(scrolled.view.MapCenterX, 80);
}

TEST(ZoomAt, LeavesTheMenuTheBarsAndTheRectanglesSizeAsTheMenusCommandDoesAtEveryZoom) {
    for (int zoom = 1; zoom <= 100; ++zoom) {
        for (const int steps : {1, -1}) {
            ScrolledView byMenu;
            ScrolledView byWheel;
            byMenu.ZoomTo(zoom);
            byWheel.ZoomTo(zoom);
            const bool enabled = steps > 0 ? byMenu.view.zoomMenu.inEnabled : byMenu.view.zoomMenu.outEnabled;
            if (enabled && steps > 0)
                ZoomIn(byMenu.view, byMenu.Bars());
            else if (enabled)
                ZoomOut(byMenu.view, byMenu.Bars());
            EXPECT_EQ(ZoomAt(byWheel.view, byWheel.Bars(), steps, 10, 300), enabled);
            EXPECT_EQ(byWheel.view.MapZoom, byMenu.view.MapZoom);
            EXPECT_EQ(ZoomText(byWheel.view), ZoomText(byMenu.view));
            EXPECT_EQ(byWheel.view.zoomMenu, byMenu.view.zoomMenu);
            EXPECT_EQ(byWheel.view.h_scroll.Max, byMenu.view.h_scroll.Max);
            EXPECT_EQ(byWheel.view.v_scroll.Max, byMenu.view.v_scroll.Max);
            EXPECT_EQ(byWheel.view.h_scroll.LargeChange, byMenu.view.h_scroll.LargeChange);
            EXPECT_EQ(byWheel.view.v_scroll.LargeChange, byMenu.view.v_scroll.LargeChange);
            EXPECT_EQ(byWheel.view.shp_area.Visible, byMenu.view.shp_area.Visible);
            EXPECT_EQ(byWheel.view.shp_area.Width, byMenu.view.shp_area.Width);
            EXPECT_EQ(byWheel.view.shp_area.Height, byMenu.view.shp_area.Height);
        }
    }
}

TEST(ZoomAt, TheMapPixelUnderThePointerStaysUnlessTheMapEndsThere) {
    int clamped = 0;
    for (int zoom = 1; zoom <= 100; ++zoom) {
        for (const int steps : {1, -1, 7, -7}) {
            for (const auto &[left, top] : {std::pair(0, 0), {640, 320}, {300, 100}}) {
                for (const auto &[x, y] :
                     {std::pair(0, 0), {639, 319}, {1, 318}, {320, 160}, {37, 251}, {611, 4}}) {
                    ScrolledView scrolled;
                    scrolled.ZoomTo(zoom);
                    scrolled.horizontal.SetValue(static_cast<std::int16_t>(left));
                    scrolled.vertical.SetValue(static_cast<std::int16_t>(top));
                    const auto under = [&] {
                        return ScreenToMap(scrolled.view, static_cast<float>(x), static_cast<float>(y));
                    };
                    const MapPoint before = under();
                    ZoomAt(scrolled.view, scrolled.Bars(), steps, x, y);
                    SCOPED_TRACE(testing::Message() << "from " << zoom << " by " << steps << " at " << x
                                                    << ", " << y << ", origin " << left << ", " << top);
                    const auto expectStays = [&](float was, float is, const FakeScrollBar &bar) {
                        if (was == is)
                            return;
                        // The bar is at the end at which it had to stop.
                        EXPECT_EQ(bar.value, was < is ? 0 : bar.maximum);
                        // A bar's end is rounded, so that the view reaches beyond the map at some zooms.
                        EXPECT_TRUE(steps < 0 || was - is == 1) << was << " became " << is;
                        ++clamped;
                    };
                    expectStays(before.x, under().x, scrolled.horizontal);
                    expectStays(before.y, under().y, scrolled.vertical);
                    ASSERT_FALSE(testing::Test::HasFailure());
                }
            }
        }
    }
    EXPECT_GT(clamped, 100);
}

TEST(ZoomAt, InAndOutAgainManyTimesNeverMovesThePixelUnderThePointer) {
    ScrolledView scrolled;
    scrolled.LoadProject();
    for (int times = 0; times < 20; ++times) {
        for (int steps = 0; steps < 99; ++steps) {
            ZoomAt(scrolled.view, scrolled.Bars(), 1, 457, 203);
            EXPECT_EQ(ScreenToMap(scrolled.view, 457, 203).x, 457);
            EXPECT_EQ(ScreenToMap(scrolled.view, 457, 203).y, 203);
        }
        EXPECT_EQ(scrolled.view.MapZoom, 100);
        for (int steps = 0; steps < 99; ++steps)
            ZoomAt(scrolled.view, scrolled.Bars(), -1, 457, 203);
        EXPECT_EQ(scrolled.view.MapZoom, 1);
    }
}

TEST(ZoomAt, StopsWhereTheMenuDoesAndThenChangesNothing) {
    ScrolledView scrolled;
    scrolled.ZoomTo(98);
    EXPECT_TRUE(ZoomAt(scrolled.view, scrolled.Bars(), 5, 3, 3));
    EXPECT_EQ(scrolled.view.MapZoom, 100);
    const MapView nearest = scrolled.view;
    scrolled.calls.clear();
    EXPECT_FALSE(ZoomAt(scrolled.view, scrolled.Bars(), 1, 600, 300));
    EXPECT_EQ(scrolled.view, nearest);
    EXPECT_THAT(scrolled.calls, ElementsAre());

    EXPECT_TRUE(ZoomAt(scrolled.view, scrolled.Bars(), -300, 3, 3));
    EXPECT_EQ(scrolled.view.MapZoom, 1);
    const MapView whole = scrolled.view;
    EXPECT_FALSE(ZoomAt(scrolled.view, scrolled.Bars(), -1, 600, 300));
    EXPECT_EQ(scrolled.view, whole);
}

TEST(ZoomAt, TheNextCommandOfTheMenuGoesOnFromTheMiddleOfWhatIsShown) {
    ScrolledView scrolled;
    scrolled.LoadProject();
    ZoomAt(scrolled.view, scrolled.Bars(), 1, 0, 319);  // the scroll bar across stays at 0
    EXPECT_EQ(scrolled.horizontal.value, 0);
    EXPECT_EQ(scrolled.vertical.value, 160);
    EXPECT_EQ(scrolled.view.MapCenterX, 160);
    EXPECT_EQ(scrolled.view.MapCenterY, 240);
    ZoomTo400(scrolled.view, scrolled.Bars());
    EXPECT_EQ(scrolled.horizontal.value, 80);
    EXPECT_EQ(scrolled.vertical.value, 200);
}

TEST(ScrollChange, MovesRectangleAndCentreButNotWhileAZoomCommandIsAtWork) {
    ScrolledView scrolled;
    scrolled.ZoomTo(2);
    scrolled.horizontal.SetValue(100);
    EXPECT_EQ(scrolled.view.h_scroll.Value, 100);
    EXPECT_EQ(scrolled.view.MapCenterX, 260);
    EXPECT_EQ(scrolled.view.MapCenterY, 160);
    EXPECT_EQ(scrolled.view.shp_area,
              (OverviewRectangle{.Visible = true, .Left = 25, .Top = 20, .Width = 80, .Height = 40}));
    scrolled.vertical.SetValue(40);
    EXPECT_EQ(scrolled.view.MapCenterY, 120);
    EXPECT_EQ(scrolled.view.shp_area.Top, 10);
    scrolled.view.ScrollSyncSuspended = true;
    scrolled.horizontal.SetValue(4);
    scrolled.vertical.SetValue(4);
    EXPECT_EQ(scrolled.view.shp_area.Left, 1);
    EXPECT_EQ(scrolled.view.shp_area.Top, 1);
    EXPECT_EQ(scrolled.view.MapCenterX, 260);
    EXPECT_EQ(scrolled.view.MapCenterY, 120);
}

TEST(ScrollChange, TheHalfViewInTheCentreIsCutNotRounded) {
    ScrolledView scrolled;
    scrolled.ZoomTo(3);  // 106.67 and 53.33
    scrolled.horizontal.SetValue(10);
    scrolled.vertical.SetValue(10);
    EXPECT_EQ(scrolled.view.MapCenterX, 116);
    EXPECT_EQ(scrolled.view.MapCenterY, 63);
}

void ExpectSame(const ScrolledView &scrolled, const ExpectedView &expected) {
    const MapView &view = scrolled.view;
    EXPECT_EQ(view.MapZoom, expected.zoom);
    EXPECT_EQ(view.MapCenterX, expected.centerX);
    EXPECT_EQ(view.MapCenterY, expected.centerY);
    EXPECT_EQ(view.h_scroll.Value, expected.h);
    EXPECT_EQ(view.v_scroll.Value, expected.v);
    EXPECT_EQ(view.h_scroll.Max, expected.hMax);
    EXPECT_EQ(view.v_scroll.Max, expected.vMax);
    EXPECT_EQ(view.h_scroll.LargeChange, expected.hLarge);
    EXPECT_EQ(view.v_scroll.LargeChange, expected.vLarge);
    EXPECT_EQ(scrolled.horizontal.value, expected.h);
    EXPECT_EQ(scrolled.vertical.value, expected.v);
    EXPECT_EQ(scrolled.horizontal.maximum, expected.hMax);
    EXPECT_EQ(scrolled.vertical.maximum, expected.vMax);
    EXPECT_EQ(scrolled.horizontal.largeChange, expected.hLarge);
    EXPECT_EQ(scrolled.vertical.largeChange, expected.vLarge);
    EXPECT_FALSE(view.ScrollSyncSuspended);
    EXPECT_EQ(view.shp_area.Visible, expected.shown);
    EXPECT_EQ(view.shp_area.Left, expected.left);
    EXPECT_EQ(view.shp_area.Top, expected.top);
    if (expected.shown) {
        EXPECT_EQ(view.shp_area.Width, expected.width);
        EXPECT_EQ(view.shp_area.Height, expected.height);
    }
    EXPECT_EQ(view.zoomMenu.inEnabled, expected.in);
    EXPECT_EQ(view.zoomMenu.outEnabled, expected.out);
    EXPECT_EQ(view.zoomMenu.checked100, expected.checked == 100);
    EXPECT_EQ(view.zoomMenu.checked200, expected.checked == 200);
    EXPECT_EQ(view.zoomMenu.checked400, expected.checked == 400);
}

/// Does one command or scroll on both, if the menus allow it, and returns its name.
std::string RandomStep(std::mt19937 &random, ScrolledView &scrolled, ExpectedView &expected) {
    const auto below = [&random](int limit) {
        return static_cast<std::int16_t>(random() % static_cast<unsigned>(limit));
    };
    MapView &view = scrolled.view;
    switch (below(16)) {
        case 0:
            ZoomTo100(view, scrolled.Bars());
            expected.Whole();
            return "100";
        case 1:
            ZoomTo200(view, scrolled.Bars());
            expected.Fixed(2);
            return "200";
        case 2:
            ZoomTo400(view, scrolled.Bars());
            expected.Fixed(4);
            return "400";
        case 3:
            if (below(4) == 0) {
                scrolled.LoadProject();
                expected.Load();
            }
            return "load";
        case 4:
        case 5:
        case 6:
        case 7: {
            // Many steps in a row, to reach the far factors too.
            for (int steps = 1 + below(30); steps > 0 && view.zoomMenu.inEnabled; --steps) {
                ZoomIn(view, scrolled.Bars());
                expected.In();
            }
            return "in";
        }
        case 8:
        case 9:
        case 10: {
            for (int steps = 1 + below(30); steps > 0 && view.zoomMenu.outEnabled; --steps) {
                ZoomOut(view, scrolled.Bars());
                expected.Out();
            }
            return "out";
        }
        case 11:
        case 12:
        case 13: {
            const std::int16_t value = below(700);
            scrolled.horizontal.SetValue(value);
            expected.ScrollH(value);
            return "h_scroll " + std::to_string(value);
        }
        default: {
            const std::int16_t value = below(350);
            scrolled.vertical.SetValue(value);
            expected.ScrollV(value);
            return "v_scroll " + std::to_string(value);
        }
    }
}

TEST(ZoomCommands, TenThousandRandomSequencesGiveTheStateOfASecondComputation) {
    std::mt19937 random(20240611);
    int farFactors = 0;
    for (int sequence = 0; sequence < 10000; ++sequence) {
        ScrolledView scrolled;
        ExpectedView expected;
        scrolled.LoadProject();
        expected.Load();
        std::string steps = "load";
        for (int step = 0; step < 12; ++step) {
            steps += ", " + RandomStep(random, scrolled, expected);
            ExpectSame(scrolled, expected);
            farFactors += scrolled.view.MapZoom == 100 ? 1 : 0;
        }
        ASSERT_FALSE(HasFailure()) << "sequence " << sequence << ": " << steps;
    }
    EXPECT_GT(farFactors, 100) << "the sequences must reach the largest factor";
}

TEST(ZoomAt, BetweenTheOtherCommandsAtRandomGivesTheStateOfASecondComputation) {
    std::mt19937 random(20261121);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int sequence = 0; sequence < 1000; ++sequence) {
        ScrolledView scrolled;
        ExpectedView expected;
        scrolled.LoadProject();
        expected.Load();
        std::string steps = "load";
        for (int step = 0; step < 12; ++step) {
            const int x = below(640);
            const int y = below(320);
            const int zoomSteps = below(41) - 20;
            ZoomAt(scrolled.view, scrolled.Bars(), zoomSteps, x, y);
            expected.At(zoomSteps, x, y);
            steps += ", " + std::to_string(zoomSteps) + " at " + std::to_string(x) + " " + std::to_string(y);
            ExpectSame(scrolled, expected);
            steps += ", " + RandomStep(random, scrolled, expected);
            ExpectSame(scrolled, expected);
        }
        ASSERT_FALSE(HasFailure()) << "sequence " << sequence << ": " << steps;
    }
}

}  // namespace
}  // namespace vtr
