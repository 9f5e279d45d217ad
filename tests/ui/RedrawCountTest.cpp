#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QScrollBar>

#include "EditorWindow.h"
#include "RedrawCounter.h"

namespace vtr {
namespace {

class RedrawCountTest : public EditorWindow {
  protected:
    template <typename Action>
    int RedrawsOf(Action action) {
        counter.count = 0;
        action();
        QCoreApplication::processEvents();
        return counter.count;
    }
    int RedrawsOfEntry(const char *entry) {
        return RedrawsOf([&] { Entry(entry).trigger(); });
    }
    int RedrawsOfNumber(const char *field, int number) {
        return RedrawsOf([&] { EXPECT_TRUE(Number(field).SetNumber(number)) << field; });
    }

    int RedrawsOfButton(const char *button) {
        return RedrawsOf([&] { Press<QPushButton>(window(), QLatin1String(button)); });
    }

    RedrawCounter counter;
};

TEST_F(RedrawCountTest, EachRedrawThatReachesTheSelectedTargetTurnsItsPhase) {
    StartWithSample();
    for (int redraw = 0; redraw < 3; ++redraw) {
        const bool before = session->view.TargetFlashPhase;
        EXPECT_EQ(RedrawsOf([&] { window().Redraw(); }), 1);
        EXPECT_EQ(session->view.TargetFlashPhase, !before);
    }
}

TEST_F(RedrawCountTest, TheFirstLoadRedrawsOnce) {
    EXPECT_EQ(RedrawsOf([&] { StartWithSample(); }), 1);
    EXPECT_TRUE(session->view.TargetFlashPhase);
}

TEST_F(RedrawCountTest, ALaterLoadRedrawsOnceMoreOnlyWhenASelectorHadToMove) {
    StartWithSample();
    const auto loadAgain = [this] { window().Start(QString::fromStdString(SamplePath())); };
    EXPECT_EQ(RedrawsOf(loadAgain), 1);
    Number("upd_rail_linenum").SetNumber(5);
    EXPECT_EQ(RedrawsOf(loadAgain), 2);
}

TEST_F(RedrawCountTest, EachZoomCommandRedrawsOnce) {
    StartWithSample();
    session->campaign.TargetTable[0].x = 320;
    session->campaign.TargetTable[0].y = 160;
    for (const char *entry : {"mnu_m_z_in", "mnu_m_z_in", "mnu_m_z_200", "mnu_m_z_400", "mnu_m_z_400",
                              "mnu_m_z_out", "mnu_m_z_100", "mnu_m_z_100", "mnu_m_z_in", "mnu_m_z_out"}) {
        const bool before = session->view.TargetFlashPhase;
        EXPECT_EQ(RedrawsOfEntry(entry), 1) << entry;
        EXPECT_EQ(session->view.TargetFlashPhase, !before) << entry;
    }
}

TEST_F(RedrawCountTest, AZoomCommandThatMovesTheScrollBarsRedrawsOnce) {
    StartWithSample();
    Entry("mnu_m_z_400").trigger();
    Find<QScrollBar>(window(), QStringLiteral("h_scroll")).setValue(480);
    Find<QScrollBar>(window(), QStringLiteral("v_scroll")).setValue(240);
    EXPECT_EQ(RedrawsOfEntry("mnu_m_z_out"), 1);
    EXPECT_EQ(RedrawsOfEntry("mnu_m_z_100"), 1);
}

TEST_F(RedrawCountTest, EachViewEntryRedrawsOnceEachTime) {
    StartWithSample();
    for (const char *entry :
         {"mnu_v_targets", "mnu_v_frontlines", "mnu_v_railways", "mnu_v_roadint", "mnu_v_railint"})
        for (int times = 0; times < 2; ++times)
            EXPECT_EQ(RedrawsOfEntry(entry), 1) << entry;
}

TEST_F(RedrawCountTest, EachViewSelectorRedrawsOnce) {
    StartWithSample();
    for (const char *selector :
         {"upd_viewfrontline", "upd_view_railway", "upd_view_roadint", "upd_view_railint"}) {
        EXPECT_EQ(RedrawsOfNumber(selector, 7), 1) << selector;
        EXPECT_EQ(RedrawsOfNumber(selector, 0), 1) << selector;
    }
    // The railway panel that already shows the line changes nothing more.
    Number("upd_rail_linenum").SetNumber(42);
    EXPECT_EQ(RedrawsOfNumber("upd_view_railway", 42), 1);
}

TEST_F(RedrawCountTest, AClickOnTheOverviewRedrawsOnce) {
    StartWithSample();
    auto &overview = Find<QWidget>(window(), QStringLiteral("Img_SmallMap"));
    EXPECT_EQ(RedrawsOf([&] { QTest::mouseClick(&overview, Qt::LeftButton); }), 1);
}

TEST_F(RedrawCountTest, AClickOnTheOverviewBeforeTheFirstLoadDoesNotRedraw) {
    window().Start(QString());
    auto &overview = Find<QWidget>(window(), QStringLiteral("Img_SmallMap"));
    EXPECT_EQ(RedrawsOf([&] { QTest::mouseClick(&overview, Qt::LeftButton); }), 0);
}

TEST_F(RedrawCountTest, EachEditOfATargetRedrawsOnce) {
    StartWithSample();
    for (const char *field :
         {"upd_tar_code", "upd_tar_x", "upd_tar_y", "upd_tar_xm", "upd_tar_ym", "upd_tar_numtargets"}) {
        const int other = Number(field).value() == 5 ? 6 : 5;
        EXPECT_EQ(RedrawsOfNumber(field, other), 1) << field;
    }
    auto &airfield = Find<QCheckBox>(window(), QStringLiteral("chk_tar_airfield"));
    EXPECT_EQ(RedrawsOf([&] { airfield.toggle(); }), 1);
    auto &name = Find<QLineEdit>(window(), QStringLiteral("txt_tar_name"));
    EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&name, Qt::Key_Backspace); }), 0) << "nothing to erase";
    name.end(false);
    EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&name, Qt::Key_Backspace); }), 1);
}

TEST_F(RedrawCountTest, EachEditOfAFrontlineRedrawsOnce) {
    StartWithSample();
    Entry("mnu_e_frontline").trigger();
    for (const char *field : {"upd_frnt_num", "upd_frnt_pointnum", "upd_frnt_x", "upd_frnt_y"}) {
        const int other = Number(field).value() == 5 ? 6 : 5;
        EXPECT_EQ(RedrawsOfNumber(field, other), 1) << field;
    }
    auto &onMap = Find<QCheckBox>(window(), QStringLiteral("chk_frnt_map"));
    EXPECT_EQ(RedrawsOf([&] { onMap.toggle(); }), 1);
}

TEST_F(RedrawCountTest, EachEditOfARailwayLineRedrawsOnceButItsMetresDoNot) {
    StartWithSample();
    Entry("mnu_e_railway").trigger();
    for (const char *field :
         {"upd_rail_linenum", "upd_rail_x1", "upd_rail_y1", "upd_rail_x2", "upd_rail_y2"}) {
        const int other = Number(field).value() == 5 ? 6 : 5;
        EXPECT_EQ(RedrawsOfNumber(field, other), 1) << field;
    }
    for (const char *field : {"upd_rail_xm1", "upd_rail_ym1", "upd_rail_xm2", "upd_rail_ym2"})
        EXPECT_EQ(RedrawsOfNumber(field, Number(field).value() == 5 ? 6 : 5), 0) << field;
}

TEST_F(RedrawCountTest, ReorderingAndFindingATargetRedrawOnce) {
    StartWithSample();
    EXPECT_EQ(RedrawsOfButton("cmd_reorder"), 1);
    session->campaign.TargetTable[77].name = "BERLIN";
    WhenModalOpens([](QWidget &dialog) {
        Find<QLineEdit>(dialog, QStringLiteral("txt_name")).setText(QStringLiteral("BERLIN"));
        Press<QPushButton>(dialog, QStringLiteral("cmd_find"));
    });
    EXPECT_EQ(RedrawsOfButton("cmd_target_search"), 1);
    EXPECT_EQ(Number("upd_tar_code").value(), 77);
}

TEST_F(RedrawCountTest, DisablingRailwayLinesAndCopyingAFrontlineRedrawOnce) {
    StartWithSample();
    for (const auto &[mode, button] :
         {std::pair("mnu_e_railway", "cmd_rail_disable"), {"mnu_e_frontline", "cmd_frnt_copy"}}) {
        Entry(mode).trigger();
        ShownBox question;
        AnswerNextBox(question, QMessageBox::Yes);
        EXPECT_EQ(RedrawsOfButton(button), 1) << button;
        EXPECT_EQ(question.count, 1);
        AnswerNextBox(question, QMessageBox::No);
        EXPECT_EQ(RedrawsOfButton(button), 0) << button;
        EXPECT_EQ(question.count, 2);
    }
}

TEST_F(RedrawCountTest, AClickThatPlacesAnItemRedrawsForItsColumnAndForItsRowAndOneThatSelectsOnce) {
    StartWithSample();
    auto &map = Find<QWidget>(window(), QStringLiteral("Img_Map"));
    const auto redrawsOfClick = [&](Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        return RedrawsOf([&] { QTest::mouseClick(&map, button, keys, QPoint(17, 23)); });
    };
    Number("upd_tar_code").SetNumber(20);
    EXPECT_EQ(redrawsOfClick(Qt::LeftButton, Qt::ShiftModifier), 2);
    Number("upd_tar_code").SetNumber(21);
    EXPECT_EQ(redrawsOfClick(Qt::LeftButton, Qt::NoModifier), 1);
    EXPECT_EQ(Number("upd_tar_code").value(), 20);
    Entry("mnu_e_frontline").trigger();
    EXPECT_EQ(redrawsOfClick(Qt::LeftButton, Qt::NoModifier), 2);
    Entry("mnu_e_railway").trigger();
    EXPECT_EQ(redrawsOfClick(Qt::LeftButton, Qt::ShiftModifier), 2);
    EXPECT_EQ(redrawsOfClick(Qt::RightButton, Qt::ShiftModifier), 2);
}

TEST_F(RedrawCountTest, ScrollingDoesNotRedraw) {
    StartWithSample();
    Entry("mnu_m_z_400").trigger();
    EXPECT_EQ(RedrawsOf([&] {
                  for (const char *bar : {"h_scroll", "v_scroll"}) {
                      auto &scroll = Find<QScrollBar>(window(), QLatin1String(bar));
                      scroll.setValue(7);
                      scroll.triggerAction(QScrollBar::SliderPageStepAdd);
                      QTest::keyClick(&scroll, Qt::Key_Home);
                      EXPECT_EQ(scroll.value(), 0);
                  }
              }),
              0);
}

TEST_F(RedrawCountTest, AnEditModeRedrawsOnlyToShowItsHiddenLayer) {
    StartWithSample();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    for (const Qt::Key key : {Qt::Key_F3, Qt::Key_F4})
        EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&window(), key); }), 0);
    EXPECT_TRUE(Entry("mnu_e_railway").isChecked());
    EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&window(), Qt::Key_F2); }), 0);
    EXPECT_TRUE(Entry("mnu_e_target").isChecked());
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F6}) {
        EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&window(), key); }), 1);
        EXPECT_EQ(RedrawsOf([&] { QTest::keyClick(&window(), key); }), 0);
    }
    EXPECT_TRUE(Entry("mnu_e_railint").isChecked());
}

TEST_F(RedrawCountTest, TheMouseOverTheMapDoesNotRedraw) {
    StartWithSample();
    EXPECT_EQ(RedrawsOf([&] {
                  QTest::mouseMove(&Find<QWidget>(window(), QStringLiteral("Img_Map")), QPoint(31, 9));
              }),
              0);
}

TEST_F(RedrawCountTest, ThePreferencesDialogDoesNotRedraw) {
    StartWithSample();
    EXPECT_EQ(
        RedrawsOf([&] {
            WhenModalOpens([](QWidget &dialog) { Press<QPushButton>(dialog, QStringLiteral("cmd_OK")); });
            Entry("mnu_p_prefs").trigger();
        }),
        0);
}

}  // namespace
}  // namespace vtr
