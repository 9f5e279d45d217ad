#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>

#include "MapMovingTesting.h"
#include "MeasureLine.h"

namespace vtr {
namespace {

TEST_F(MapMovingTest, TheKeysOfTheZoomMenuZoom) {
    ASSERT_TRUE(window().isActiveWindow());
    for (const auto &[key, zoom] : {std::pair(Qt::Key_Equal, "200%"),
                                    {Qt::Key_Plus, "300%"},
                                    {Qt::Key_Minus, "200%"},
                                    {Qt::Key_0, "100%"}}) {
        EXPECT_EQ(RedrawsOf([&, key = key] { QTest::keyClick(&window(), key, Qt::ControlModifier); }), 1);
        EXPECT_EQ(PanelText("zoom"), zoom);
    }
    EXPECT_TRUE(Entry("mnu_m_z_100").isChecked());
}

TEST_F(MapMovingTest, GoToBringsTheSelectedItemOfTheModeIntoTheMiddleAndRedrawsOnce) {
    ZoomTo(4);
    Campaign &campaign = session->campaign;
    campaign.TargetTable[0].x = 200;
    campaign.TargetTable[0].y = 100;
    campaign.FrontlineTable[0].points[0].x = 210;
    campaign.FrontlineTable[0].points[0].y = 110;
    campaign.RailwayTable[0].x1 = 220;
    campaign.RailwayTable[0].y1 = 120;
    campaign.RoadWaypointTable[0].waypoints[0].x = 230;
    campaign.RoadWaypointTable[0].waypoints[0].y = 130;
    campaign.RailWaypointTable[0].waypoints[0].x = 3;
    campaign.RailWaypointTable[0].waypoints[0].y = 318;
    for (const auto &[mode, shown] : {std::pair("mnu_e_target", QPoint(120, 60)),
                                      {"mnu_e_frontline", QPoint(130, 70)},
                                      {"mnu_e_railway", QPoint(140, 80)},
                                      {"mnu_e_roadint", QPoint(150, 90)},
                                      {"mnu_e_railint", QPoint(0, 240)}}) {
        Entry(mode).trigger();
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(RedrawsOf([&] { Entry("mnu_v_goto").trigger(); }), 1);
            EXPECT_EQ(Shown(), shown) << mode;
        }
    }
}

TEST_F(MapMovingTest, GoToTellsWhenTheItemLiesBesideTheMap) {
    ZoomTo(4);
    Show(240, 120);
    session->campaign.TargetTable[0].y = 1760;
    EXPECT_EQ(RedrawsOf([&] { Entry("mnu_v_goto").trigger(); }), 0);
    EXPECT_EQ(Shown(), QPoint(240, 120));
    EXPECT_EQ(Find<QStatusBar>(window(), QStringLiteral("sb_status")).currentMessage(),
              "The selected item does not lie on the map.");
}

TEST_F(MapMovingTest, GoToIsEnabledWhileOnlyAPartOfTheMapIsShown) {
    EXPECT_FALSE(Entry("mnu_v_goto").isEnabled());
    TurnWheel(Map(), {0, 120}, Qt::ControlModifier);
    EXPECT_TRUE(Entry("mnu_v_goto").isEnabled());
    Entry("mnu_m_z_out").trigger();
    EXPECT_FALSE(Entry("mnu_v_goto").isEnabled());
    Entry("mnu_m_z_400").trigger();
    EXPECT_TRUE(Entry("mnu_v_goto").isEnabled());
    Entry("mnu_m_z_100").trigger();
    EXPECT_FALSE(Entry("mnu_v_goto").isEnabled());
}

TEST_F(MapMovingTest, HomeGoesToTheItemOnlyWhileTheMapHasTheFocus) {
    ZoomTo(4);
    session->campaign.TargetTable[0].x = 200;
    session->campaign.TargetTable[0].y = 100;
    Show(240, 120);
    auto &name = Find<QLineEdit>(window(), QStringLiteral("txt_tar_name"));
    name.setFocus();
    QTest::keyClick(&name, Qt::Key_Home);
    EXPECT_EQ(Shown(), QPoint(240, 120));
    Across().setFocus();
    QTest::keyClick(&Across(), Qt::Key_Home);
    EXPECT_EQ(Shown(), QPoint(0, 120));
    Map().setFocus();
    EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&Map(), Qt::Key_Home); }), 1);
    EXPECT_EQ(Shown(), QPoint(120, 60));
}

TEST_F(MapMovingTest, AltWithAnArrowKeyScrollsTheMapAndMovesNoItem) {
    ZoomTo(4);
    Show(240, 120);
    const auto before = std::make_unique<Campaign>(session->campaign);
    for (const auto &[key, shown] : {std::pair(Qt::Key_Left, QPoint(220, 120)),
                                     {Qt::Key_Up, QPoint(220, 110)},
                                     {Qt::Key_Right, QPoint(240, 110)},
                                     {Qt::Key_Down, QPoint(240, 120)}}) {
        EXPECT_EQ(RedrawsOf([&, key = key] { QTest::keyClick(&Map(), key, Qt::AltModifier); }), 1);
        EXPECT_EQ(Shown(), shown);
    }
    EXPECT_TRUE(session->campaign == *before);
    Show(0, 0);
    EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&Map(), Qt::Key_Left, Qt::AltModifier); }), 0);
}

TEST_F(MapMovingTest, SelectingByNumberOrFindingATargetRedrawsOnceAndDoesNotScroll) {
    ZoomTo(4);
    Show(0, 0);
    session->campaign.TargetTable[77].name = "Ostrafeld Depot";
    session->campaign.TargetTable[77].x = 600;
    EXPECT_EQ(RedrawsOf([&] { Number("upd_tar_code").SetNumber(77); }), 1);
    EXPECT_EQ(Shown(), QPoint(0, 0));
    Number("upd_tar_code").SetNumber(1);
    WhenModalOpens([](QWidget &dialog) {
        Find<QLineEdit>(dialog, QStringLiteral("txt_name")).setText(QStringLiteral("ostrafeld depot"));
        Press<QPushButton>(dialog, QStringLiteral("cmd_find"));
    });
    EXPECT_EQ(RedrawsOf([&] { Press<QPushButton>(window(), QStringLiteral("cmd_target_search")); }), 1);
    EXPECT_EQ(Number("upd_tar_code").value(), 77);
    EXPECT_EQ(Shown(), QPoint(0, 0));
}

TEST_F(MapMovingTest, ASignBesideTheMapTellsThatThePictureIsBehindTheScrollBars) {
    auto &sign = Find<QLabel>(window(), QStringLiteral("lbl_behind"));
    EXPECT_FALSE(sign.isVisible());
    sign.setText(QStringLiteral("A text as long as in no language"));
    constexpr int focusFrame = 2;
    EXPECT_EQ(Map().parentWidget()->sizeHint(), QSize(640 + 2 * focusFrame + Down().sizeHint().width(),
                                                      320 + 2 * focusFrame + Across().sizeHint().height()))
        << "it takes no room of its own";
    ZoomTo(4);
    Show(240, 120);
    EXPECT_FALSE(sign.isVisible());
    const QRect frame = Map().parentWidget()->geometry();
    Across().setValue(7);
    EXPECT_TRUE(sign.isVisible());
    EXPECT_FALSE(sign.toolTip().isEmpty());
    EXPECT_FALSE(sign.accessibleName().isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(Map().parentWidget()->geometry(), frame);
    EXPECT_EQ(sign.parentWidget(), Map().parentWidget());
    EXPECT_FALSE(sign.geometry().intersects(Map().geometry()));
    EXPECT_GT(sign.width(), 6);
    EXPECT_GT(sign.height(), 6);
    Across().setValue(240);
    EXPECT_FALSE(sign.isVisible()) << "the picture is right again";
    Down().setValue(3);
    EXPECT_TRUE(sign.isVisible());
    QTest::mouseClick(&Find<QWidget>(window(), QStringLiteral("Img_SmallMap")), Qt::LeftButton);
    EXPECT_FALSE(sign.isVisible());
    Down().setValue(30);
    Entry("mnu_m_z_in").trigger();
    EXPECT_FALSE(sign.isVisible());
}

TEST_F(MapMovingTest, TheMiddleButtonDragsTheViewInTheOverview) {
    auto &overview = Find<QWidget>(window(), QStringLiteral("Img_SmallMap"));
    ZoomTo(4);
    EXPECT_EQ(RedrawsOf([&] { PressMouse(overview, Qt::MiddleButton, {50, 30}); }), 1);
    EXPECT_EQ(Shown(), QPoint(202 - 80, 122 - 40));
    EXPECT_EQ(RedrawsOf([&] { MoveMouse(overview, Qt::MiddleButton, {51, 29}); }), 1);
    EXPECT_EQ(Shown(), QPoint(206 - 80, 118 - 40));
    MoveMouse(overview, Qt::MiddleButton, {400, 200});
    EXPECT_EQ(Shown(), QPoint(480, 240));
    EXPECT_EQ(RedrawsOf([&] { MoveMouse(overview, Qt::MiddleButton, {500, 300}); }), 0);
    MoveMouse(overview, Qt::MiddleButton, {-400, -200});
    EXPECT_EQ(Shown(), QPoint(0, 0));
    EXPECT_EQ(RedrawsOf([&] {
                  ReleaseMouse(overview, Qt::MiddleButton, {-400, -200});
              }),
              1)
        << "as each release over the overview does";
    for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
        PressMouse(overview, button, {80, 40});
        EXPECT_EQ(RedrawsOf([&] { MoveMouse(overview, button, {90, 50}); }), 0);
        EXPECT_EQ(Shown(), QPoint(0, 0));
    }
}

TEST_F(MapMovingTest, CtrlAndTheMiddleButtonMeasureAndDoNothingElse) {
    ZoomTo(4);
    Show(240, 120);
    const auto before = std::make_unique<Campaign>(session->campaign);
    const QImage picture = Map().grab().toImage();
    auto &line = Find<MeasureLine>(window(), QStringLiteral("lin_measure"));
    EXPECT_FALSE(line.isVisible());
    const QImage around = Map().parentWidget()->grab().toImage();
    EXPECT_EQ(RedrawsOf([&] {
                  PressMouse(Map(), Qt::MiddleButton, {100, 100}, Qt::ControlModifier);
                  EXPECT_EQ(line.Text(), "0.0 km");
                  MoveMouse(Map(), Qt::MiddleButton, {100, 60}, Qt::ControlModifier);
                  EXPECT_EQ(line.Text(), QStringLiteral("41.0 km, 0\u00B0"));
                  // The key may be let go, and the wheel waits.
                  MoveMouse(Map(), Qt::MiddleButton, {112, 116});
                  EXPECT_EQ(line.Text(), QStringLiteral("20.5 km, 143\u00B0"));
                  TurnWheel(Map(), {0, 120});
                  TurnWheel(Map(), {0, 120}, Qt::ControlModifier);
              }),
              0);
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.geometry(), Map().geometry());
    EXPECT_EQ(line.parentWidget(), Map().parentWidget());
    EXPECT_TRUE(line.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(Map().grab().toImage(), picture);
    EXPECT_NE(Map().parentWidget()->grab().toImage(), around);
    EXPECT_EQ(RedrawsOf([&] { ReleaseMouse(Map(), Qt::MiddleButton, {112, 116}); }), 0);
    EXPECT_FALSE(line.isVisible());
    EXPECT_EQ(Shown(), QPoint(240, 120));
    EXPECT_EQ(PanelText("zoom"), "400%");
    EXPECT_TRUE(session->campaign == *before);
    EXPECT_EQ(RedrawsOf([&] { MoveMouse(Map(), Qt::NoButton, {200, 200}); }), 0);
    EXPECT_FALSE(line.isVisible());
}

using MapMovingWithoutAProject = EditorWindow;

TEST_F(MapMovingWithoutAProject, NothingMovesZoomsOrMeasures) {
    window().Start(QString());
    QApplication::setActiveWindow(&window());
    auto &map = Find<MapSurface>(window(), QStringLiteral("Img_Map"));
    auto &overview = Find<QWidget>(window(), QStringLiteral("Img_SmallMap"));
    map.setFocus();
    const RedrawCounter counter;
    for (const auto keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}) {
        TurnWheel(map, {0, 120}, keys);
        TurnWheel(map, {0, -120}, keys);
        PressMouse(map, Qt::MiddleButton, {100, 100}, keys);
        MoveMouse(map, Qt::MiddleButton, {200, 50}, keys);
        EXPECT_FALSE(Find<MeasureLine>(window(), QStringLiteral("lin_measure")).isVisible());
        ReleaseMouse(map, Qt::MiddleButton, {200, 50}, keys);
        PressMouse(overview, Qt::MiddleButton, {10, 10}, keys);
        MoveMouse(overview, Qt::MiddleButton, {20, 10}, keys);
        ReleaseMouse(overview, Qt::MiddleButton, {20, 10}, keys);
    }
    for (const auto key : {Qt::Key_Equal, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0})
        QTest::keyClick(&map, key, Qt::ControlModifier);
    QTest::keyClick(&map, Qt::Key_Home);
    QTest::keyClick(&map, Qt::Key_Left, Qt::AltModifier);
    EXPECT_FALSE(Entry("mnu_v_goto").isEnabled());
    EXPECT_EQ(session->view, MapView());
    EXPECT_EQ(counter.count, 0);
}

}  // namespace
}  // namespace vtr
