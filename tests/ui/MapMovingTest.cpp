#include <gtest/gtest.h>

#include <QLabel>
#include <random>

#include "Arithmetic.h"
#include "ExpectedView.h"
#include "MapMovingTesting.h"
#include "MeasureLine.h"

namespace vtr {
namespace {

TEST_F(MapMovingTest, AStepOfTheWheelScrollsAnEighthOfTheViewUpOrDownAndWithShiftSideways) {
    ZoomTo(4);  // shows 160 x 80 pixels
    Show(240, 120);
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 120}); }), 1);
    EXPECT_EQ(Shown(), QPoint(240, 110));
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -240}); }), 1);
    EXPECT_EQ(Shown(), QPoint(240, 130));
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 120}, Qt::ShiftModifier); }), 1);
    EXPECT_EQ(Shown(), QPoint(220, 130));
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -120}, Qt::ShiftModifier); }), 1);
    EXPECT_EQ(Shown(), QPoint(240, 130));
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {-120, 120}); }), 1);
    EXPECT_EQ(Shown(), QPoint(260, 120));
}

TEST_F(MapMovingTest, WhereShiftHasAlreadyTurnedTheWheelSidewaysItStaysSideways) {
    ZoomTo(4);
    Show(240, 120);
    TurnWheel(Map(), {120, 0}, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), QPoint(220, 120));
}

TEST_F(MapMovingTest, SmallTurnsOfTheWheelAddUpAndRedrawOnlyWhenTheMapMoves) {
    ZoomTo(100);  // shows 6 x 3 pixels: a step is one of them
    Show(300, 100);
    for (int round = 0; round < 2; ++round) {
        for (int turn = 0; turn < 7; ++turn)
            EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -15}); }), 0);
        EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -15}); }), 1);
        EXPECT_EQ(Shown(), QPoint(300, 101 + round));
    }
}

TEST_F(MapMovingTest, TheWheelStopsAtEachBorderAndRedrawsThereNoMore) {
    ZoomTo(4);
    for (const auto &[turn, keys, end] : {std::tuple(120, Qt::NoModifier, QPoint(240, 0)),
                                          {-120, Qt::NoModifier, QPoint(240, 240)},
                                          {120, Qt::ShiftModifier, QPoint(0, 120)},
                                          {-120, Qt::ShiftModifier, QPoint(480, 120)}}) {
        Show(240, 120);
        const QPoint angle(0, turn);
        for (int times = 0; times < 40; ++times)
            TurnWheel(Map(), angle, keys);
        EXPECT_EQ(Shown(), end);
        EXPECT_EQ(RedrawsOf([&, keys = keys] { TurnWheel(Map(), angle, keys); }), 0);
        TurnWheel(Map(), -angle, keys);
        EXPECT_NE(Shown(), end) << "nothing of the turns against the border is left over";
    }
}

TEST_F(MapMovingTest, AtTheBorderTheWheelStillShowsWhatAScrollBarHasMoved) {
    ZoomTo(4);
    Show(240, 10);
    Down().setValue(0);
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 120}); }), 1);
}

TEST_F(MapMovingTest, CtrlAndTheWheelZoomAsTheMenuDoesWithThePixelUnderThePointerInItsPlace) {
    const QPoint at(137, 251);
    for (int percent = 200; percent <= 10000; percent += 100) {
        EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 120}, Qt::ControlModifier, at); }), 1);
        EXPECT_EQ(PanelText("zoom").toStdString(), std::to_string(percent) + "%");
        EXPECT_EQ(MapPixelUnder(at), at);
        EXPECT_TRUE(Entry("mnu_m_z_out").isEnabled());
        EXPECT_FALSE(Entry("mnu_m_z_200").isChecked());
        EXPECT_TRUE(Find<QWidget>(window(), QStringLiteral("shp_area")).isVisible());
    }
    EXPECT_FALSE(Entry("mnu_m_z_in").isEnabled());
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 120}, Qt::ControlModifier, at); }), 0);
    EXPECT_EQ(PanelText("zoom"), "10000%");
    for (int percent = 9900; percent >= 100; percent -= 100)
        EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -120}, Qt::ControlModifier, at); }), 1);
    EXPECT_EQ(PanelText("zoom"), "100%");
    EXPECT_FALSE(Entry("mnu_m_z_out").isEnabled());
    EXPECT_FALSE(Entry("mnu_m_z_100").isChecked());
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, -120}, Qt::ControlModifier, at); }), 0);
}

TEST_F(MapMovingTest, SmallTurnsWithCtrlAddUpToAZoomStep) {
    for (int turn = 0; turn < 7; ++turn)
        EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 15}, Qt::ControlModifier); }), 0);
    EXPECT_EQ(PanelText("zoom"), "100%");
    EXPECT_EQ(RedrawsOf([&] { TurnWheel(Map(), {0, 15}, Qt::ControlModifier); }), 1);
    EXPECT_EQ(PanelText("zoom"), "200%");
}

TEST_F(MapMovingTest, TheWheelZoomsOnTheWholeMapOnlyIn) {
    EXPECT_EQ(RedrawsOf([&] {
                  TurnWheel(Map(), {0, 120});
                  TurnWheel(Map(), {0, -120}, Qt::ShiftModifier);
                  TurnWheel(Map(), {0, -120}, Qt::ControlModifier);
              }),
              0);
    EXPECT_EQ(PanelText("zoom"), "100%");
}

TEST_F(MapMovingTest, TheMiddleButtonDragsTheMapAndRedrawsWithEachMove) {
    ZoomTo(4);
    Show(240, 120);
    const auto before = std::make_unique<Campaign>(session->campaign);
    const QPoint held = MapPixelUnder({101, 203});
    EXPECT_EQ(RedrawsOf([&] { PressMouse(Map(), Qt::MiddleButton, {101, 203}); }), 0);
    EXPECT_EQ(Map().cursor().shape(), Qt::ClosedHandCursor);
    EXPECT_EQ(RedrawsOf([&] {
                  MoveMouse(Map(), Qt::MiddleButton, {102, 203});
              }),
              0)
        << "a quarter of a pixel";
    for (const QPoint to : {QPoint(181, 183), QPoint(21, 43), QPoint(101, 203), QPoint(-59, 403)}) {
        EXPECT_EQ(RedrawsOf([&] { MoveMouse(Map(), Qt::MiddleButton, to); }), 1);
        EXPECT_EQ(MapPixelUnder(to), held);
        EXPECT_EQ(Shown(), QPoint(240, 120) - (to - QPoint(101, 203)) / 4);
    }
    EXPECT_EQ(RedrawsOf([&] { ReleaseMouse(Map(), Qt::MiddleButton, {-59, 403}); }), 0);
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(RedrawsOf([&] { MoveMouse(Map(), Qt::NoButton, {300, 300}); }), 0);
    EXPECT_TRUE(session->campaign == *before);
}

TEST_F(MapMovingTest, ADragStopsAtTheBordersAndComesBackWithThePointer) {
    ZoomTo(4);
    Show(10, 5);
    PressMouse(Map(), Qt::MiddleButton, {100, 100});
    MoveMouse(Map(), Qt::MiddleButton, {600, 300});
    EXPECT_EQ(Shown(), QPoint(0, 0));
    EXPECT_EQ(RedrawsOf([&] { MoveMouse(Map(), Qt::MiddleButton, {639, 319}); }), 0);
    MoveMouse(Map(), Qt::MiddleButton, {100, 100});
    EXPECT_EQ(Shown(), QPoint(10, 5));
    MoveMouse(Map(), Qt::MiddleButton, {-3000, -3000});
    EXPECT_EQ(Shown(), QPoint(480, 240));
}

TEST_F(MapMovingTest, APositionUnderTheMouseIsThatAfterTheDrag) {
    ZoomTo(4);
    Show(240, 120);
    PressMouse(Map(), Qt::MiddleButton, {100, 100});
    MoveMouse(Map(), Qt::MiddleButton, {200, 160});
    EXPECT_EQ(PanelText("xypos"), "( 265,  145)");
}

TEST_F(MapMovingTest, ADragWhoseReleaseWasLostEndsWithTheNextMove) {
    ZoomTo(4);
    Show(240, 120);
    PressMouse(Map(), Qt::MiddleButton, {100, 100});
    MoveMouse(Map(), Qt::NoButton, {140, 100});
    MoveMouse(Map(), Qt::MiddleButton, {180, 100});
    EXPECT_EQ(Shown(), QPoint(240, 120));
    EXPECT_EQ(Map().cursor().shape(), Qt::CrossCursor);
}

TEST_F(MapMovingTest, NeitherTheLeftNorTheRightButtonDrags) {
    ZoomTo(4);
    Show(240, 120);
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        PressMouse(Map(), button, {100, 100}, Qt::ShiftModifier);
        EXPECT_EQ(RedrawsOf([&] { MoveMouse(Map(), button, {200, 200}); }), 0);
        EXPECT_EQ(Shown(), QPoint(240, 120));
    }
}

TEST_F(MapMovingTest, OnAnEnlargedMapThePixelOfTheSurfaceCounts) {
    Map().SetFactor(2);
    for (int times = 0; times < 3; ++times)
        TurnWheel(Map(), {0, 120}, Qt::ControlModifier, {2 * 137 + 1, 2 * 251 + 1});
    EXPECT_EQ(MapPixelUnder({137, 251}), QPoint(137, 251));
    Show(240, 120);
    PressMouse(Map(), Qt::MiddleButton, {800, 400});
    MoveMouse(Map(), Qt::MiddleButton, {840, 360});
    EXPECT_EQ(Shown(), QPoint(235, 125));
    ReleaseMouse(Map(), Qt::MiddleButton, {840, 360});
    PressMouse(Map(), Qt::MiddleButton, {800, 400}, Qt::ControlModifier);
    MoveMouse(Map(), Qt::MiddleButton, {880, 400}, Qt::ControlModifier);
    const auto &line = Find<MeasureLine>(window(), QStringLiteral("lin_measure"));
    EXPECT_EQ(line.Text(), QStringLiteral("41.0 km, 90\u00B0"));
    EXPECT_EQ(line.geometry(), Map().geometry());
}

TEST_F(MapMovingTest, BetweenWheelAndDragsTheZoomMenuGivesTheStateOfASecondComputation) {
    std::mt19937 random(20261122);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const MapView &view = session->view;
    ExpectedView expected;
    expected.Load();
    for (int step = 0; step < 1500 && !HasFailure(); ++step) {
        const QPoint at(below(640), below(320));
        SCOPED_TRACE(testing::Message() << "step " << step << ", zoom " << view.MapZoom);
        const int turns = below(7) - 3;
        switch (below(5)) {
            case 0:
                Entry("mnu_m_z_200").trigger();
                expected.Fixed(2);
                break;
            case 1:
                if (Entry("mnu_m_z_in").isEnabled())
                    expected.In();
                Entry("mnu_m_z_in").trigger();
                break;
            case 2:
                TurnWheel(Map(), {0, turns * 120}, Qt::ControlModifier, at);
                expected.At(turns, at.x(), at.y());
                break;
            case 3:
                TurnWheel(Map(), {0, turns * 120}, Qt::NoModifier, at);
                expected.ScrollV(expected.v - turns * std::max(1, expected.vLarge / 8));
                break;
            default: {
                const QPoint to = at + QPoint(turns, -turns) * 2 * view.MapZoom;
                PressMouse(Map(), Qt::MiddleButton, at);
                MoveMouse(Map(), Qt::MiddleButton, to);
                ReleaseMouse(Map(), Qt::MiddleButton, to);
                expected.ScrollH(expected.h - 2 * turns);
                expected.ScrollV(expected.v + 2 * turns);
            }
        }
        EXPECT_EQ(view.MapZoom, expected.zoom);
        EXPECT_EQ(QPoint(view.MapCenterX, view.MapCenterY), QPoint(expected.centerX, expected.centerY));
        EXPECT_EQ(view.h_scroll,
                  (ScrollState{ToInt16(expected.h), ToInt16(expected.hMax), ToInt16(expected.hLarge)}));
        EXPECT_EQ(view.v_scroll,
                  (ScrollState{ToInt16(expected.v), ToInt16(expected.vMax), ToInt16(expected.vLarge)}));
        EXPECT_EQ(Shown(), QPoint(expected.h, expected.v));
        EXPECT_EQ(QPoint(view.shp_area.Left, view.shp_area.Top), QPoint(expected.left, expected.top));
        EXPECT_FALSE(Find<QLabel>(window(), QStringLiteral("lbl_behind")).isVisible());
    }
}

}  // namespace
}  // namespace vtr
