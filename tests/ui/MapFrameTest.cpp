#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <random>

#include "EditorWindow.h"
#include "ExpectedView.h"
#include "MapCoordinates.h"
#include "MapFrame.h"

namespace vtr {
namespace {

class MapFrameTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }
    QScrollBar &Bar(const char *name) { return Find<QScrollBar>(window(), QLatin1String(name)); }
    MapSurface &Map() { return Find<MapSurface>(window(), QStringLiteral("Img_Map")); }
    QWidget &Area() { return Find<QWidget>(window(), QStringLiteral("shp_area")); }
    QWidget &SmallMap() { return Find<QWidget>(window(), QStringLiteral("Img_SmallMap")); }
    std::vector<std::uint32_t> Pixels() { return Map().Surface().pixels; }
    /// Its ring comes and goes with each redraw: away from the picture it cannot pass for another change.
    void MoveTheSelectedTargetOutOfThePicture() {
        session->campaign.TargetTable[0].x = 5000;
        window().Redraw();
    }
    /// Loads the project that is open once more.
    void LoadAgain() {
        ShownBox question;
        AnswerNextBox(question, QMessageBox::No);
        Entry("mnu_p_last1").trigger();
        EXPECT_EQ(question.count, 1);
    }
    void Choose(const char *entry, int times = 1) {
        for (int i = 0; i < times; ++i)
            Entry(entry).trigger();
    }
    void ExpectShown(const std::vector<std::uint32_t> &pixels) {
        const QImage shown = Map().grab().toImage().convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(shown.size(), QSize(640, 320));
        for (int y = 0; y < 320; ++y)
            for (int x = 0; x < 640; ++x)
                ASSERT_EQ(shown.pixel(x, y), pixels[static_cast<std::size_t>(y * 640 + x)]) << x << ", " << y;
    }
    void ExpectSame(const ExpectedView &expected) {
        EXPECT_EQ(session->view.MapZoom, expected.zoom);
        EXPECT_EQ(PanelText("zoom").toStdString(), std::to_string(expected.zoom * 100) + "%");
        EXPECT_EQ(session->view.MapCenterX, expected.centerX);
        EXPECT_EQ(session->view.MapCenterY, expected.centerY);
        ExpectBar("h_scroll", expected.h, expected.hMax, expected.hLarge);
        ExpectBar("v_scroll", expected.v, expected.vMax, expected.vLarge);
        EXPECT_EQ(Area().isVisible(), expected.shown);
        if (expected.shown) {
            EXPECT_EQ(Area().geometry(), QRect(expected.left, expected.top, expected.width, expected.height));
        }
        EXPECT_EQ(Entry("mnu_m_z_in").isEnabled(), expected.in);
        EXPECT_EQ(Entry("mnu_m_z_out").isEnabled(), expected.out);
        ExpectChecked(expected.checked == 100, expected.checked == 200, expected.checked == 400);
    }
    void ExpectBar(const char *name, int value, int maximum, int largeChange) {
        EXPECT_EQ(Bar(name).minimum(), 0);
        EXPECT_EQ(Bar(name).value(), value);
        EXPECT_EQ(Bar(name).maximum(), maximum);
        EXPECT_EQ(Bar(name).pageStep(), largeChange);
    }
    void ExpectChecked(bool at100, bool at200, bool at400) {
        EXPECT_EQ(Entry("mnu_m_z_100").isChecked(), at100);
        EXPECT_EQ(Entry("mnu_m_z_200").isChecked(), at200);
        EXPECT_EQ(Entry("mnu_m_z_400").isChecked(), at400);
    }
};

TEST_F(MapFrameTest, ZoomInAfterALoadShowsTheMiddleAtTwiceTheSize) {
    Choose("mnu_m_z_in");
    EXPECT_EQ(session->view.MapZoom, 2);
    EXPECT_EQ(Bar("h_scroll").maximum(), 320);
    EXPECT_EQ(Bar("v_scroll").maximum(), 160);
    EXPECT_EQ(Bar("h_scroll").pageStep(), 320);
    EXPECT_EQ(Bar("v_scroll").pageStep(), 160);
    EXPECT_EQ(Bar("h_scroll").value(), 160);
    EXPECT_EQ(Bar("v_scroll").value(), 80);
    EXPECT_TRUE(Area().isVisible());
    EXPECT_EQ(Area().geometry(), QRect(40, 20, 80, 40));
    EXPECT_EQ(PanelText("zoom"), "200%");
    ExpectChecked(false, false, false);
}

TEST_F(MapFrameTest, TheChosenEntryIsCheckedAndZoomInToItsFactorIsNot) {
    Choose("mnu_m_z_400");
    ExpectChecked(false, false, true);
    EXPECT_EQ(PanelText("zoom"), "400%");
    Choose("mnu_m_z_out");
    EXPECT_EQ(PanelText("zoom"), "300%");
    Choose("mnu_m_z_in");
    EXPECT_EQ(PanelText("zoom"), "400%");
    ExpectChecked(false, false, false);
    Choose("mnu_m_z_200");
    ExpectChecked(false, true, false);
}

TEST_F(MapFrameTest, ZoomInEndsAt10000PercentAndZoomOutAt100) {
    EXPECT_FALSE(Entry("mnu_m_z_out").isEnabled());
    Choose("mnu_m_z_in", 98);
    EXPECT_EQ(PanelText("zoom"), "9900%");
    EXPECT_TRUE(Entry("mnu_m_z_in").isEnabled());
    Choose("mnu_m_z_in");
    EXPECT_EQ(PanelText("zoom"), "10000%");
    EXPECT_FALSE(Entry("mnu_m_z_in").isEnabled());
    Choose("mnu_m_z_out", 99);
    EXPECT_EQ(PanelText("zoom"), "100%");
    EXPECT_FALSE(Entry("mnu_m_z_out").isEnabled());
    EXPECT_EQ(Bar("h_scroll").value(), 0);
    EXPECT_TRUE(Area().isVisible()) << "only \"100%\" hides the rectangle";
    ExpectChecked(false, false, false);
}

TEST_F(MapFrameTest, The100PercentCommandPutsEverythingBackFromAnyZoom) {
    Choose("mnu_m_z_in", 6);
    Bar("h_scroll").setValue(11);
    Choose("mnu_m_z_100");
    EXPECT_EQ(Bar("h_scroll").value(), 0);
    EXPECT_EQ(Bar("v_scroll").value(), 0);
    EXPECT_EQ(session->view.MapCenterX, 320);
    EXPECT_EQ(session->view.MapCenterY, 160);
    EXPECT_FALSE(Area().isVisible());
    EXPECT_FALSE(Entry("mnu_m_z_out").isEnabled());
    ExpectChecked(true, false, false);
}

TEST_F(MapFrameTest, ScrollingMovesTheRectangleAndTheCentreAtOnceAndTheMapAtTheNextRedraw) {
    Choose("mnu_m_z_200");
    MoveTheSelectedTargetOutOfThePicture();
    const auto before = Pixels();
    Bar("h_scroll").setValue(8);
    EXPECT_EQ(Area().geometry(), QRect(2, 20, 80, 40));
    EXPECT_EQ(session->view.MapCenterX, 168);
    QCoreApplication::processEvents();
    EXPECT_EQ(Pixels(), before);
    QTest::mouseClick(&SmallMap(), Qt::LeftButton);
    EXPECT_NE(Pixels(), before);
}

TEST_F(MapFrameTest, AClickOnTheOverviewDoesNotMoveTheViewport) {
    Choose("mnu_m_z_200");
    QTest::mouseClick(&SmallMap(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(Bar("h_scroll").value(), 160);
    EXPECT_EQ(Bar("v_scroll").value(), 80);
}

TEST_F(MapFrameTest, PaintingTheWindowAgainIsNoRedrawAndShowsTheMapAsItWasBeforeTheScroll) {
    Choose("mnu_m_z_200");
    const auto before = session->view.TargetFlashPhase;
    const auto pixels = Pixels();
    Bar("h_scroll").setValue(8);
    Bar("v_scroll").setValue(150);
    window().repaint();
    Map().repaint();
    window().resize(1000, 800);
    QCoreApplication::processEvents();
    window().hide();
    window().show();
    QCoreApplication::processEvents();
    ExpectShown(pixels);
    EXPECT_EQ(session->view.TargetFlashPhase, before);
    EXPECT_EQ(Pixels(), pixels);
    MoveTheSelectedTargetOutOfThePicture();
    EXPECT_NE(Pixels(), pixels) << "the scroll must be one that a redraw shows";
}

TEST_F(MapFrameTest, TheWindowShowsTheSurfacePixelForPixel) {
    ExpectShown(Pixels());
}

TEST_F(MapFrameTest, EachViewEntryFlipsItsLayerAndRedraws) {
    EXPECT_TRUE(Entry("mnu_v_targets").isChecked());
    EXPECT_TRUE(Entry("mnu_v_frontlines").isChecked());
    EXPECT_TRUE(Entry("mnu_v_railways").isChecked());
    EXPECT_FALSE(Entry("mnu_v_roadint").isChecked());
    EXPECT_FALSE(Entry("mnu_v_railint").isChecked());
    MoveTheSelectedTargetOutOfThePicture();
    for (const char *entry :
         {"mnu_v_targets", "mnu_v_frontlines", "mnu_v_railways", "mnu_v_roadint", "mnu_v_railint"}) {
        const bool wasChecked = Entry(entry).isChecked();
        const auto before = Pixels();
        Choose(entry);
        EXPECT_EQ(Entry(entry).isChecked(), !wasChecked);
        EXPECT_NE(Pixels(), before) << entry;
    }
}

TEST_F(MapFrameTest, ThePositionUnderTheMouseIsShownInMapPixels) {
    QTest::mouseMove(&Map(), QPoint(312, 97));
    EXPECT_EQ(PanelText("xypos"), "( 312,  97)");
    Choose("mnu_m_z_200");
    Bar("h_scroll").setValue(100);
    QTest::mouseMove(&Map(), QPoint(7, 0));
    EXPECT_EQ(PanelText("xypos"), "( 103,  80)");
    Choose("mnu_m_z_in", 98);
    Bar("h_scroll").setValue(9);
    Bar("v_scroll").setValue(4);
    QTest::mouseMove(&Map(), QPoint(312, 297));
    EXPECT_EQ(PanelText("xypos"), "( 12,  6)");
}

TEST_F(MapFrameTest, ThePathSelectorsCountFromOneAndZeroShowsAll) {
    MoveTheSelectedTargetOutOfThePicture();
    Choose("mnu_v_roadint");
    EXPECT_EQ(Number("upd_view_roadint").text(), "ALL");
    const auto all = Pixels();
    Number("upd_view_roadint").SetNumber(1);
    const auto first = Pixels();
    EXPECT_NE(first, all);
    Number("upd_view_roadint").SetNumber(2);
    EXPECT_NE(Pixels(), first);
    // Path 0 alone: the other paths are out of its way.
    for (std::size_t path = 1; path < session->campaign.RoadWaypointTable.size(); ++path)
        session->campaign.RoadWaypointTable[path].count = 0;
    Number("upd_view_roadint").SetNumber(0);
    EXPECT_EQ(Number("upd_view_roadint").text(), "ALL");
    EXPECT_EQ(Pixels(), first);
}

TEST_F(MapFrameTest, TheRailwayPanelFollowsTheViewedLine) {
    Number("upd_view_railway").SetNumber(42);
    EXPECT_EQ(Number("upd_rail_linenum").value(), 42);
    Number("upd_view_railway").SetNumber(0);
    EXPECT_EQ(Number("upd_view_railway").text(), "ALL");
    EXPECT_EQ(Number("upd_rail_linenum").value(), 0);
}

TEST_F(MapFrameTest, TheViewedFrontlineIsDrawn) {
    MoveTheSelectedTargetOutOfThePicture();
    const auto before = Pixels();
    Number("upd_viewfrontline").SetNumber(19);
    EXPECT_EQ(session->view.ViewFrontline, 19);
    EXPECT_NE(Pixels(), before);
}

TEST_F(MapFrameTest, LoadingAgainShowsAllRailwaysAndTheFirstFrontline) {
    Number("upd_view_railway").SetNumber(42);
    Number("upd_viewfrontline").SetNumber(7);
    LoadAgain();
    EXPECT_EQ(Find<QLineEdit>(window(), QStringLiteral("txt_view_railway")).text(), "ALL");
    EXPECT_EQ(Number("upd_view_railway").value(), 0);
    EXPECT_EQ(Find<QLineEdit>(window(), QStringLiteral("txt_viewfrontline")).text(), "0");
    EXPECT_EQ(session->view.ViewFrontline, 0);
}

TEST_F(MapFrameTest, LoadingAgainCompletesAHalfErasedAll) {
    auto &text = Find<QLineEdit>(window(), QStringLiteral("txt_view_railway"));
    text.end(false);
    QTest::keyClick(&text, Qt::Key_Backspace);
    ASSERT_EQ(text.text(), "AL");
    LoadAgain();
    EXPECT_EQ(text.text(), "ALL");
}

TEST_F(MapFrameTest, TheZoomMenuStandsAsEachCommandLeavesIt) {
    struct Step {
        const char *command;
        const char *zoom;
        bool in, out, at100, at200, at400;
    };
    const Step steps[] = {
        {"mnu_m_z_in", "200%", true, true, false, false, false},
        {"mnu_m_z_200", "200%", true, true, false, true, false},
        {"mnu_m_z_200", "200%", true, true, false, true, false},
        {"mnu_m_z_in", "300%", true, true, false, false, false},
        {"mnu_m_z_in", "400%", true, true, false, false, false},
        {"mnu_m_z_400", "400%", true, true, false, false, true},
        {"mnu_m_z_out", "300%", true, true, false, false, false},
        {"mnu_m_z_100", "100%", true, false, true, false, false},
        {"mnu_m_z_100", "100%", true, false, true, false, false},
        {"mnu_m_z_200", "200%", true, true, false, true, false},
        {"mnu_m_z_out", "100%", true, false, false, false, false},
        {"mnu_m_z_400", "400%", true, true, false, false, true},
    };
    for (const Step &step : steps) {
        SCOPED_TRACE(std::string(step.command) + " to " + step.zoom);
        Choose(step.command);
        EXPECT_EQ(PanelText("zoom"), step.zoom);
        EXPECT_EQ(Entry("mnu_m_z_in").isEnabled(), step.in);
        EXPECT_EQ(Entry("mnu_m_z_out").isEnabled(), step.out);
        ExpectChecked(step.at100, step.at200, step.at400);
    }
}

TEST_F(MapFrameTest, RandomZoomsScrollsAndLoadsGiveTheStateOfASecondComputation) {
    std::mt19937 random(20260907);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    ExpectedView expected;
    expected.Load();
    int farFactors = 0;
    for (int sequence = 0; sequence < 300 && !HasFailure(); ++sequence) {
        std::string steps;
        const auto choose = [&](const char *entry, auto computed) {
            if (!Entry(entry).isEnabled())
                return;
            steps += std::string(entry) + ", ";
            Choose(entry);
            computed();
            ExpectSame(expected);
        };
        if (sequence % 50 == 49) {
            LoadAgain();
            expected.Load();
            ExpectSame(expected);
        }
        for (int step = 0; step < 8; ++step) {
            switch (below(8)) {
                case 0:
                    choose("mnu_m_z_100", [&] { expected.Whole(); });
                    break;
                case 1:
                    choose("mnu_m_z_200", [&] { expected.Fixed(2); });
                    break;
                case 2:
                    choose("mnu_m_z_400", [&] { expected.Fixed(4); });
                    break;
                case 3:
                    for (int times = below(4) == 0 ? 100 : below(20); times >= 0; --times)
                        choose("mnu_m_z_in", [&] { expected.In(); });
                    break;
                case 4:
                    for (int times = below(20); times >= 0; --times)
                        choose("mnu_m_z_out", [&] { expected.Out(); });
                    break;
                case 5:
                case 6: {
                    const int value = below(700);
                    steps += "h_scroll " + std::to_string(value) + ", ";
                    Bar("h_scroll").setValue(value);
                    expected.ScrollH(value);
                    break;
                }
                default: {
                    const int value = below(350);
                    steps += "v_scroll " + std::to_string(value) + ", ";
                    Bar("v_scroll").setValue(value);
                    expected.ScrollV(value);
                }
            }
            ExpectSame(expected);
            farFactors += expected.zoom == 100 ? 1 : 0;
            ASSERT_FALSE(HasFailure()) << "sequence " << sequence << ": " << steps;
        }
    }
    EXPECT_GT(farFactors, 20) << "the sequences must reach the largest factor";
}

TEST_F(MapFrameTest, TheSelectedTargetBlinksWhileThePreferenceIsSet) {
    auto &timer = Find<QTimer>(window(), QStringLiteral("tmr_TargetFlash"));
    EXPECT_EQ(timer.interval(), 750);
    timer.start(1);
    session->preferences.FlashTarget = 1;
    const bool phase = session->view.TargetFlashPhase;
    EXPECT_TRUE(QTest::qWaitFor([&] { return session->view.TargetFlashPhase != phase; }, 2000));

    session->preferences.FlashTarget = 0;
    const bool still = session->view.TargetFlashPhase;
    QTest::qWait(30);
    EXPECT_EQ(session->view.TargetFlashPhase, still);

    session->preferences.FlashTarget = 1;
    Choose("mnu_v_targets");
    const bool hidden = session->view.TargetFlashPhase;
    QTest::qWait(30);
    EXPECT_EQ(session->view.TargetFlashPhase, hidden) << "nothing blinks while the targets are hidden";
}

TEST(MapFrameWithoutProject, NeitherTheMouseNorTheOverviewDoesAnything) {
    auto session = std::make_unique<Session>();
    frm_main window(*session);
    window.show();
    QTest::mouseMove(&Find<QWidget>(window, QStringLiteral("Img_Map")), QPoint(5, 5));
    EXPECT_EQ(Find<QToolButton>(window, QStringLiteral("xypos")).text(), "(0, 0)");
    QTest::mouseClick(&Find<QWidget>(window, QStringLiteral("Img_SmallMap")), Qt::LeftButton);
    EXPECT_EQ(session->view.MapZoom, 0);
}

TEST(MapFrameWithoutProject, TheZoomKeyDoesNothingUntilAProjectIsLoaded) {
    auto session = std::make_unique<Session>();
    frm_main window(*session);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(session->view, MapView());
    EXPECT_EQ(Find<QToolButton>(window, QStringLiteral("zoom")).text(), "100%");
    EXPECT_EQ(Find<QScrollBar>(window, QStringLiteral("h_scroll")).maximum(), 0);
    EXPECT_FALSE(Find<QWidget>(window, QStringLiteral("shp_area")).isVisible());
    // Once the menu is enabled the same key zooms.
    session->view.MapZoom = 1;
    Find<QMenu>(window, QStringLiteral("mnu_m_zoom")).setEnabled(true);
    QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(session->view.MapZoom, 2);
}

}  // namespace
}  // namespace vtr
