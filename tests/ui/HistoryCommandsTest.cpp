#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

#include "EditorWindow.h"
#include "HistoryCommands.h"
#include "MapFrame.h"
#include "RedrawCounter.h"
#include "SaveFiles.h"
#include "WholeFile.h"

namespace vtr {
namespace {

class HistoryCommandsTest : public EditorWindow {
  protected:
    void SetUp() override {
        StartWithSample();
        session->now = [this] { return time; };
        // Off-screen no window system makes it the active one, which keys need to reach the menu's entries.
        QApplication::setActiveWindow(&window());
        ASSERT_TRUE(window().isActiveWindow());
    }

    Campaign &campaign() { return session->campaign; }
    QString UndoText() { return Entry("mnu_e_undo").text(); }
    QString RedoText() { return Entry("mnu_e_redo").text(); }
    void Undo() { Entry("mnu_e_undo").trigger(); }
    void Redo() { Entry("mnu_e_redo").trigger(); }
    template <typename Field>
    Field &Focused(const char *name) {
        auto &field = Find<Field>(window(), QLatin1String(name));
        field.setFocus();
        return field;
    }
    void ClickMap(Qt::MouseButton button, Qt::KeyboardModifiers keys, int x, int y) {
        QTest::mouseClick(&Find<MapSurface>(window(), "Img_Map"), button, keys, QPoint(x, y));
    }
    void PressWithYes(const char *button) {
        ShownBox shown;
        AnswerNextBox(shown, QMessageBox::Yes);
        Press<QPushButton>(window(), QLatin1String(button));
        ASSERT_EQ(shown.count, 1);
    }
    void Choose(const char *list, int entry) { Find<QComboBox>(window(), list).setCurrentIndex(entry); }

    /// The six files that a save would write now.
    std::vector<Bytes> Files() {
        const std::string out = folder.Path() + "out/";
        std::filesystem::create_directory(out);
        const auto moved = std::make_unique<Campaign>(campaign());
        moved->paths.ProjectDir = out;
        SaveBoxes all{};
        all.fill(true);
        EXPECT_TRUE(SaveFiles(*moved, all, session->programFolder).Succeeded());
        std::vector<Bytes> files;
        for (const std::string &name : {moved->paths.Targets, moved->paths.TarNames, moved->paths.GridData,
                                        moved->paths.Frontline, moved->paths.Airfield, moved->paths.Railway})
            files.push_back(ReadWholeFile(out + name));
        return files;
    }

    /// Does edit, which must be one named edit, undoes and redoes it.
    void ExpectOneEdit(const char *name, const std::function<void()> &edit) {
        const auto before = std::make_unique<Campaign>(campaign());
        const std::vector<Bytes> filesBefore = Files();
        const Edit *const lastBefore = session->history.ToUndo();
        const QString undoBefore = UndoText();
        edit();
        const auto after = std::make_unique<Campaign>(campaign());
        const std::vector<Bytes> filesAfter = Files();
        EXPECT_FALSE(*before == *after) << name;
        EXPECT_EQ(UndoText(), QStringLiteral("&Undo ") + QLatin1String(name));
        Undo();
        EXPECT_TRUE(campaign() == *before) << name;
        EXPECT_EQ(Files(), filesBefore) << name;
        EXPECT_EQ(RedoText(), QStringLiteral("R&edo ") + QLatin1String(name));
        EXPECT_EQ(UndoText(), undoBefore) << name;
        EXPECT_EQ(session->history.ToUndo() == nullptr, lastBefore == nullptr) << name;
        Redo();
        EXPECT_TRUE(campaign() == *after) << name;
        EXPECT_EQ(Files(), filesAfter) << name;
        EXPECT_EQ(RedoText(), "R&edo");
    }

    History::Time time{};
};

TEST_F(HistoryCommandsTest, ThereIsNothingToUndoOrRedoAfterALoad) {
    EXPECT_EQ(UndoText(), "&Undo");
    EXPECT_FALSE(Entry("mnu_e_undo").isEnabled());
    EXPECT_EQ(RedoText(), "R&edo");
    EXPECT_FALSE(Entry("mnu_e_redo").isEnabled());
}

TEST_F(HistoryCommandsTest, RedoHasBothKeys) {
    EXPECT_EQ(Entry("mnu_e_redo").shortcuts(),
              (QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                                   QKeySequence(QStringLiteral("Ctrl+Y"))}));
}

TEST_F(HistoryCommandsTest, EveryKindOfEditIsUndoneAndRedoneToTheSameBytesOfAllFiles) {
    const auto set = [this](const char *field, int number) {
        return [=, this] { EXPECT_TRUE(Number(field).SetNumber(number)) << field; };
    };
    Number("upd_tar_code").SetNumber(12);
    ExpectOneEdit("Move Target 12", set("upd_tar_x", 601));
    ExpectOneEdit("Move Target 12", set("upd_tar_y", 301));
    ExpectOneEdit("Move Target 12", set("upd_tar_xm", 1234));
    ExpectOneEdit("Move Target 12", set("upd_tar_ym", 4000));
    ExpectOneEdit("Change Objects of Target 12", set("upd_tar_numtargets", 63));
    ExpectOneEdit("Rename Target 12", [this] {
        Find<QLineEdit>(window(), "txt_tar_name").setText(QStringLiteral("Wexlinmere Bridge"));
    });
    ExpectOneEdit("Change Airfield Box of Target 12",
                  [this] { Find<QCheckBox>(window(), "chk_tar_airfield").toggle(); });
    ExpectOneEdit("Move Target 12", [this] { ClickMap(Qt::LeftButton, Qt::ShiftModifier, 333, 222); });

    // A target that is an airfield, whose record the panel beside shows.
    const auto airfield = std::ranges::find_if(campaign().TargetTable, [](const TargetRecord &target) {
        return target.airfield_mark != 0 && target.airfield_ref == 44;
    });
    ASSERT_NE(airfield, campaign().TargetTable.end());
    Number("upd_tar_code").SetNumber(static_cast<int>(airfield - campaign().TargetTable.begin()));
    const std::uint8_t country = campaign().AirfieldTable[44].country;
    campaign().AirfieldTable[44] = {};
    campaign().AirfieldTable[44].country = country;
    Number("upd_tar_code").SetNumber(0);
    Number("upd_tar_code").SetNumber(static_cast<int>(airfield - campaign().TargetTable.begin()));
    ExpectOneEdit("Change Orientation of Airfield 44", set("upd_air_orientation", 90));
    ExpectOneEdit("Change Country of Airfield 44", [this] {
        auto &list = Find<QComboBox>(window(), "cbo_air_country");
        list.setCurrentIndex(list.currentIndex() == 0 ? 1 : 0);
    });
    for (const char *year : {"1940", "1943", "1944", "1945"}) {
        ExpectOneEdit((std::string("Change ") + year + " Model of Airfield 44").c_str(),
                      [&] { Choose((std::string("cbo_air_") + year).c_str(), 2); });
        ExpectOneEdit((std::string("Change ") + year + " Aircraft of Airfield 44").c_str(),
                      [&] { Choose((std::string("cbo_side_") + year).c_str(), 7); });
    }

    Entry("mnu_e_frontline").trigger();
    Number("upd_frnt_num").SetNumber(3);
    Number("upd_frnt_pointnum").SetNumber(5);
    ExpectOneEdit("Move Point 5 of Frontline 3", set("upd_frnt_x", 17));
    ExpectOneEdit("Move Point 5 of Frontline 3", set("upd_frnt_y", 18));
    const bool shown = campaign().FrontlineTable[3].points[5].on_map != 0;
    ExpectOneEdit(shown ? "Hide Point 5 of Frontline 3" : "Show Point 5 of Frontline 3",
                  [this] { Find<QCheckBox>(window(), "chk_frnt_map").toggle(); });
    ExpectOneEdit("Move Point 5 of Frontline 3",
                  [this] { ClickMap(Qt::LeftButton, Qt::NoModifier, 50, 60); });
    ExpectOneEdit("Copy Frontline 3 to All Slots", [this] { PressWithYes("cmd_frnt_copy"); });

    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(7);
    for (const char *field : {"upd_rail_x1", "upd_rail_y1", "upd_rail_x2", "upd_rail_y2", "upd_rail_xm1",
                              "upd_rail_ym1", "upd_rail_xm2", "upd_rail_ym2"})
        ExpectOneEdit("Move Railway Line 7", set(field, 33));
    ExpectOneEdit("Move Railway Line 7", [this] { ClickMap(Qt::LeftButton, Qt::ShiftModifier, 70, 80); });
    ExpectOneEdit("Move Railway Line 7", [this] { ClickMap(Qt::RightButton, Qt::ShiftModifier, 75, 85); });
    Number("upd_rail_linenum").SetNumber(100);
    ExpectOneEdit("Disable Lines from 100", [this] { PressWithYes("cmd_rail_disable"); });
    ExpectOneEdit("Enable All Lines", [this] { Press<QPushButton>(window(), QStringLiteral("cmd_Enable")); });

    Entry("mnu_e_target").trigger();
    Number("upd_tar_code").SetNumber(301);
    campaign().TargetTable[301].x = 0;
    campaign().TargetTable[301].y = 0;
    ExpectOneEdit("Reorder Targets", [this] { Press<QPushButton>(window(), QStringLiteral("cmd_reorder")); });
}

TEST_F(HistoryCommandsTest, APrecisePositionIsOneEdit) {
    ExpectOneEdit("Move Target 0", [this] {
        WhenModalOpens([](QWidget &dialog) {
            QTest::mouseClick(&Find<QWidget>(dialog, "pic_tile"), Qt::LeftButton, Qt::NoModifier, {64, 192});
            Press<QPushButton>(dialog, QStringLiteral("cmd_OK"));
        });
        Press<QPushButton>(window(), QStringLiteral("cmd_tar_precise"));
    });
}

TEST_F(HistoryCommandsTest, UndoAndRedoShowTheItemInItsModeAndRedrawOnce) {
    Entry("mnu_e_frontline").trigger();
    Number("upd_frnt_num").SetNumber(3);
    Number("upd_frnt_pointnum").SetNumber(5);
    const int before = Number("upd_frnt_x").value();
    Number("upd_frnt_x").SetNumber(17);
    Number("upd_frnt_num").SetNumber(4);
    Entry("mnu_e_railway").trigger();
    Entry("mnu_v_frontlines").setChecked(false);
    RedrawCounter redraws;
    Undo();
    EXPECT_EQ(redraws.count, 1);
    EXPECT_TRUE(Entry("mnu_e_frontline").isChecked());
    EXPECT_TRUE(Entry("mnu_v_frontlines").isChecked());
    EXPECT_TRUE(Find<QWidget>(window(), "fra_frontline").isEnabled());
    EXPECT_FALSE(Find<QWidget>(window(), "fra_railway").isEnabled());
    EXPECT_EQ(PanelText("curredit"), "  FRONTLINES  ");
    EXPECT_EQ(Number("upd_frnt_num").value(), 3);
    EXPECT_EQ(Number("upd_frnt_pointnum").value(), 5);
    EXPECT_EQ(Number("upd_frnt_x").value(), before);
    Entry("mnu_e_target").trigger();
    redraws.count = 0;
    Redo();
    EXPECT_EQ(redraws.count, 1);
    EXPECT_TRUE(Entry("mnu_e_frontline").isChecked());
    EXPECT_EQ(Number("upd_frnt_x").value(), 17);
}

TEST_F(HistoryCommandsTest, UndoneReorderingSelectsTheTargetByItsOldNumber) {
    Number("upd_tar_code").SetNumber(301);
    campaign().TargetTable[301].x = 0;
    campaign().TargetTable[301].y = 0;
    Press<QPushButton>(window(), QStringLiteral("cmd_reorder"));
    EXPECT_EQ(Number("upd_tar_code").value(), 0);
    Undo();
    EXPECT_EQ(Number("upd_tar_code").value(), 301);
    Redo();
    EXPECT_EQ(Number("upd_tar_code").value(), 0);
}

TEST_F(HistoryCommandsTest, UndoneDisablingShowsTheLinesAndTheCaptionAgain) {
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(1);
    const int x = Number("upd_rail_x1").value();
    ASSERT_NE(x, 0);
    PressWithYes("cmd_rail_disable");
    EXPECT_EQ(Find<QLabel>(window(), "lbl_disabled").text(), "Lines 1+ Disabled");
    EXPECT_EQ(Number("upd_rail_x1").value(), 0);
    Undo();
    EXPECT_EQ(Find<QLabel>(window(), "lbl_disabled").text(), "No Lines disabled");
    EXPECT_EQ(Number("upd_rail_x1").value(), x);
}

TEST_F(HistoryCommandsTest, UndoBringsTheItemIntoView) {
    Entry("mnu_m_z_400").trigger();
    Number("upd_tar_code").SetNumber(12);
    campaign().TargetTable[12].x = 600;
    campaign().TargetTable[12].y = 300;
    Number("upd_tar_numtargets").SetNumber(60);
    auto &across = Find<QScrollBar>(window(), QStringLiteral("h_scroll"));
    auto &down = Find<QScrollBar>(window(), QStringLiteral("v_scroll"));
    across.setValue(0);
    down.setValue(0);
    Undo();
    EXPECT_EQ(across.value(), 480);  // 600 - 80 is more than the bar's end
    EXPECT_EQ(down.value(), 240);
    across.setValue(470);
    Redo();
    EXPECT_EQ(across.value(), 470);  // in view already
    campaign().TargetTable[13].x = 200;
    campaign().TargetTable[13].y = 100;
    Number("upd_tar_code").SetNumber(13);
    Number("upd_tar_numtargets").SetNumber(60);
    Undo();
    EXPECT_EQ(across.value(), 120);
    EXPECT_EQ(down.value(), 60);
}

TEST_F(HistoryCommandsTest, TypingInOneFieldOfOneItemIsOneEdit) {
    campaign().TargetTable[0].x = 5;
    Number("upd_tar_code").SetNumber(1);
    Number("upd_tar_code").SetNumber(0);
    auto &column = Focused<NumberField>("upd_tar_x");
    column.selectAll();
    QTest::keyClicks(&column, "123");
    EXPECT_EQ(campaign().TargetTable[0].x, 123);
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].x, 5);
    EXPECT_EQ(Find<QLineEdit>(window(), "txt_tar_x").text(), "5");
    EXPECT_FALSE(Entry("mnu_e_undo").isEnabled());
}

TEST_F(HistoryCommandsTest, SteppingAndTheWheelMergeWithTyping) {
    campaign().TargetTable[0].x = 5;
    Number("upd_tar_code").SetNumber(1);
    Number("upd_tar_code").SetNumber(0);
    auto &column = Focused<NumberField>("upd_tar_x");
    column.selectAll();
    QTest::keyClicks(&column, "12");
    QTest::keyClick(&column, Qt::Key_Up);
    QWheelEvent wheel(QPointF(5, 5), column.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 360),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&column, &wheel);
    EXPECT_EQ(campaign().TargetTable[0].x, 16);
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].x, 5);
}

TEST_F(HistoryCommandsTest, TypingANameIsOneEdit) {
    auto &name = Focused<QLineEdit>("txt_tar_name");
    const std::string before = campaign().TargetTable[0].name;
    name.selectAll();
    QTest::keyClicks(&name, "Wexlinmere");
    EXPECT_EQ(campaign().TargetTable[0].name, "Wexlinmere");
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].name, before);
    EXPECT_EQ(name.text().toStdString(), before);
}

TEST_F(HistoryCommandsTest, ArrowKeysOnTheMapAreOneEditForEachDirectionTheyGo) {
    auto &map = Find<MapSurface>(window(), "Img_Map");
    const int x = campaign().TargetTable[0].x;
    for (int times = 0; times < 3; ++times)
        QTest::keyClick(&map, Qt::Key_Right);
    QTest::keyClick(&map, Qt::Key_Down);
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].x, x + 3);
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].x, x);
}

TEST_F(HistoryCommandsTest, AfterTwoSecondsAnotherEditBegins) {
    Number("upd_tar_x").SetNumber(10);
    time += std::chrono::milliseconds(1999);
    Number("upd_tar_x").SetNumber(11);
    time += std::chrono::seconds(2);
    Number("upd_tar_x").SetNumber(12);
    Undo();
    EXPECT_EQ(campaign().TargetTable[0].x, 11);
}

TEST_F(HistoryCommandsTest, AnotherItemOrModeOrClickOrFieldBetweenBeginsAnotherEdit) {
    const std::vector<std::function<void()>> touches{
        [this] {
            Number("upd_tar_code").SetNumber(1);
            Number("upd_tar_code").SetNumber(0);
        },
        [this] {
            Entry("mnu_e_railway").trigger();
            Entry("mnu_e_target").trigger();
        },
        [this] { ClickMap(Qt::LeftButton, Qt::NoModifier, 0, 0); },
        [this] {
            Focused<QLineEdit>("txt_tar_name");
            Focused<NumberField>("upd_tar_x");
        }};
    for (std::size_t touch = 0; touch < touches.size(); ++touch) {
        Focused<NumberField>("upd_tar_x");
        Number("upd_tar_x").SetNumber(10);
        touches[touch]();
        Number("upd_tar_x").SetNumber(12);
        Undo();
        EXPECT_EQ(campaign().TargetTable[0].x, 10) << touch;
    }
}

TEST_F(HistoryCommandsTest, AClickThatPlacesALineAndGoesOnIsOneEditOfThatLine) {
    Entry("mnu_e_railway").trigger();
    Find<QCheckBox>(window(), "chk_rail_auto").setChecked(true);
    Number("upd_rail_linenum").SetNumber(7);
    ExpectOneEdit("Move Railway Line 7", [this] { ClickMap(Qt::RightButton, Qt::ShiftModifier, 75, 85); });
    EXPECT_EQ(Number("upd_rail_linenum").value(), 7);
}

TEST_F(HistoryCommandsTest, TheKeysUndoAndRedoAlsoInANumericField) {
    auto &column = Focused<NumberField>("upd_tar_x");
    const int before = column.value();
    column.SetNumber(before + 1);
    QTest::keyClick(&column, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(campaign().TargetTable[0].x, before);
    EXPECT_EQ(column.value(), before);
    QTest::keyClick(&column, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(campaign().TargetTable[0].x, before + 1);
    QTest::keyClick(&column, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&column, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(campaign().TargetTable[0].x, before + 1);
}

TEST_F(HistoryCommandsTest, WithNothingToUndoANumericFieldDoesNotTakeItsTypingBackByItself) {
    auto &number = Focused<NumberField>("upd_tar_code");
    number.selectAll();
    QTest::keyClicks(&number, "12");
    QTest::keyClick(&number, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(number.value(), 12);
}

TEST_F(HistoryCommandsTest, TheNameFieldTakesItsOwnTypingBackBeforeTheProgramUndoes) {
    Number("upd_tar_x").SetNumber(10);
    auto &name = Focused<QLineEdit>("txt_tar_name");
    const QString before = name.text();
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClicks(&name, "z");
    EXPECT_EQ(name.text(), before + "z");
    QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name.text(), before);
    EXPECT_EQ(campaign().TargetTable[0].x, 10);
    EXPECT_EQ(UndoText(), "&Undo Move Target 0");  // the name is what it was: nothing of it to undo
    QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(campaign().TargetTable[0].x, 10);
}

TEST_F(HistoryCommandsTest, WhatTheNameFieldTookBackTheProgramDoesNotBringAgain) {
    Number("upd_tar_x").SetNumber(10);
    auto &name = Focused<QLineEdit>("txt_tar_name");
    const QString before = name.text();
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClicks(&name, "zz");
    time += std::chrono::minutes(1);
    while (name.isUndoAvailable())
        QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(name.text(), before);
    EXPECT_EQ(UndoText(), "&Undo Move Target 0");
}

TEST_F(HistoryCommandsTest, AfterAnUndoTheRowFieldOfALineWithoutAnEndShowsTheTablesRow) {
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_linenum").SetNumber(893);
    RailwayLine &line = campaign().RailwayTable[893];
    line = {.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760};
    ClickMap(Qt::LeftButton, Qt::ShiftModifier, 75, 85);
    ASSERT_EQ(line.y1, 85);
    Undo();
    EXPECT_EQ(line.y1, 1760);
    EXPECT_EQ(Number("upd_rail_y1").value(), 1760);
    ClickMap(Qt::LeftButton, Qt::ShiftModifier, 80, 85);
    EXPECT_EQ(line.y1, 85);
}

TEST_F(HistoryCommandsTest, WhatIsTakenOverInAnotherModeEnablesNoAirfield) {
    const auto airfield = std::ranges::find_if(
        campaign().TargetTable, [](const TargetRecord &target) { return target.airfield_mark != 0; });
    Number("upd_tar_code").SetNumber(static_cast<int>(airfield - campaign().TargetTable.begin()));
    Entry("mnu_e_railway").trigger();
    HistoryCommands *const commands = window().findChild<HistoryCommands *>();
    ASSERT_NE(commands, nullptr);
    commands->ShowTables();
    EXPECT_FALSE(Find<QWidget>(window(), "fra_airfield").isEnabled());
}

TEST_F(HistoryCommandsTest, UndoOfWhatWasTakenOverTellsWhichLinesAreDisabled) {
    Entry("mnu_v_railways").trigger();  // hides them: a redraw tells nothing of them
    const auto other = std::make_unique<Campaign>(campaign());
    other->TargetTable[0].count = 1;
    other->firstDisabledRailwayLine = 3;
    session->TakeOver("Take Back Earlier Version", DifferencesOf(campaign(), *other));
    Undo();
    EXPECT_EQ(Find<QLabel>(window(), "lbl_disabled").text(), "No Lines disabled");
    Redo();
    EXPECT_EQ(Find<QLabel>(window(), "lbl_disabled").text(), "Lines 3+ Disabled");
}

TEST_F(HistoryCommandsTest, ALoadForgetsTheEdits) {
    // The same project again: its unsaved work is offered.
    WhenModalOpens([](QWidget &question) { QTest::keyClick(&question, Qt::Key_Escape); });
    Number("upd_tar_x").SetNumber(10);
    window().Start(QString::fromStdString(SamplePath()));
    EXPECT_FALSE(Entry("mnu_e_undo").isEnabled());
    EXPECT_EQ(UndoText(), "&Undo");
}

}  // namespace
}  // namespace vtr
