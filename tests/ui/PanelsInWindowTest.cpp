#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <memory>

#include "EditorWindow.h"
#include "MapSurface.h"
#include "PanelTesting.h"
#include "TargetNameFile.h"

namespace vtr {
namespace {

/// The panels where they stand in the editor: in its window, with its map and its status bar.
class PanelsInWindowTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }

    Campaign &campaign() { return session->campaign; }
    TargetRecord &Target(int index) { return campaign().TargetTable[static_cast<std::size_t>(index)]; }
    QLineEdit &Edit(const char *name) { return Find<QLineEdit>(window(), name); }
    std::string Text(const std::string &name) { return Edit(name.c_str()).text().toStdString(); }
    bool Enabled(const char *name) { return Find<QWidget>(window(), name).isEnabled(); }
    QString StatusMessage() { return Find<QStatusBar>(window(), "sb_status").currentMessage(); }
    std::string DisabledLines() { return Find<QLabel>(window(), "lbl_disabled").text().toStdString(); }
    std::vector<std::uint32_t> &Pixels() { return Find<MapSurface>(window(), "Img_Map").Surface().pixels; }
    /// Takes the loaded campaign's tables for ones with values, fractions and letters of all kinds.
    void UseFilledTables() {
        const auto filled = FilledCampaign();
        filled->paths = campaign().paths;
        filled->terrain = campaign().terrain;
        filled->ProjectLoaded = true;
        campaign() = *filled;
    }
    void Select(const char *selector, int index) { ASSERT_TRUE(Number(selector).SetNumber(index)); }
    void ExpectPairShows(const std::string &name, int number) {
        EXPECT_EQ(Number(("upd_" + name).c_str()).value(), number) << name;
        EXPECT_EQ(Text("txt_" + name), std::to_string(number)) << name;
    }

    void ExpectTargetShown(int index) {
        const TargetRecord &target = Target(index);
        const auto &offsets = target.fineOffsets;
        ExpectPairShows("tar_code", index);
        ExpectPairShows("tar_x", target.x);
        ExpectPairShows("tar_y", target.y);
        ExpectPairShows("tar_xm", std::stoi(RoundedMetres(offsets[0])));
        ExpectPairShows("tar_ym", std::stoi(RoundedMetres(offsets[1])));
        ExpectPairShows("tar_numtargets", target.count);
        // Of the letters in these names only this one is another in Latin 1.
        EXPECT_EQ(Edit("txt_tar_name").text(),
                  QString::fromLatin1(target.name).replace(QChar(0x9A), QChar(0x161)));
        const bool isAirfield = target.airfield_mark != 0;
        EXPECT_EQ(Find<QCheckBox>(window(), "chk_tar_airfield").isChecked(), isAirfield);
        EXPECT_EQ(Enabled("fra_airfield"), isAirfield);
        if (isAirfield)
            ExpectAirfieldShown(target.airfield_ref);
    }
    void ExpectAirfieldShown(std::size_t index) {
        const AirfieldRecord &airfield = campaign().AirfieldTable.at(index);
        EXPECT_EQ(Text("txt_air_code"), std::to_string(index));
        ExpectPairShows("air_orientation", airfield.airfield_extra_word);
        const auto entryOf = [this](const std::string &combo) {
            return Find<QComboBox>(window(), combo.c_str()).currentIndex();
        };
        const std::array<int, 7> entryOfCountry{0, 1, 2, 3, 4, -1, 5};
        EXPECT_EQ(entryOf("cbo_air_country"), entryOfCountry.at(airfield.country));
        const std::array<int, 4> models{airfield.base_1940, airfield.base_1943, airfield.base_1944,
                                        airfield.base_1945};
        const std::array<std::string, 4> years{"1940", "1943", "1944", "1945"};
        for (std::size_t year = 0; year < years.size(); ++year) {
            EXPECT_EQ(entryOf("cbo_air_" + years[year]), models[year] < 11 ? models[year] : -1);
            const AirfieldYearSlot &slot = airfield.yearSlots[year];
            const int expected = slot.allied_no_plane_a != 0   ? 30
                                 : slot.allied_no_plane_b != 0 ? 31
                                 : slot.german_no_plane != 0   ? 32
                                 : slot.german != 0            ? 16 + slot.aircraft
                                                               : slot.aircraft;
            EXPECT_EQ(entryOf("cbo_side_" + years[year]), expected);
        }
    }

    /// A row that only marks the line as unused leaves the row that the panel showed before.
    void ExpectLineShown(int index, std::array<int, 2> &rows) {
        const RailwayLine &line = campaign().RailwayTable[static_cast<std::size_t>(index)];
        const auto &offsets = line.fineOffsets;
        if (line.y1 != 1759 && line.y1 != 1760)
            rows[0] = line.y1;
        if (line.y2 != 1759 && line.y1 != 1760)
            rows[1] = line.y2;
        ExpectPairShows("rail_linenum", index);
        ExpectPairShows("rail_x1", line.x1);
        ExpectPairShows("rail_y1", rows[0]);
        ExpectPairShows("rail_x2", line.x2);
        ExpectPairShows("rail_y2", rows[1]);
        const std::array<const char *, 4> metres{"rail_xm1", "rail_xm2", "rail_ym1", "rail_ym2"};
        for (std::size_t i = 0; i < metres.size(); ++i)
            ExpectPairShows(metres[i], std::stoi(RoundedMetres(offsets[i])));
    }

    ShownBox BoxAnswered(QMessageBox::StandardButton button, const char *pressed) {
        ShownBox shown;
        AnswerNextBox(shown, button);
        Press<QPushButton>(window(), QString::fromLatin1(pressed));
        EXPECT_EQ(shown.count, 1);
        EXPECT_EQ(shown.title, "VTR Target Editor");
        EXPECT_EQ(shown.icon, QMessageBox::Question);
        EXPECT_EQ(shown.buttons, QMessageBox::Yes | QMessageBox::No);
        return shown;
    }
    void TypeCharacter(const char *edit, const QString &character) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QCoreApplication::sendEvent(&Edit(edit), &press);
    }
    void GoToFrontlinesAndBack() {
        Entry("mnu_e_frontline").trigger();
        Entry("mnu_e_target").trigger();
    }
};

TEST_F(PanelsInWindowTest, EveryTargetOfTheSampleIsShownAsTheTablesHoldItAndNoneIsChanged) {
    const auto before = std::make_unique<Campaign>(campaign());
    for (int target = 301; target >= 0; --target) {
        Select("upd_tar_code", target);
        ExpectTargetShown(target);
    }
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, EveryTargetWithFractionsAndOddReferencesIsShownAndNoneIsChanged) {
    UseFilledTables();
    for (std::size_t i = 0; i < campaign().AirfieldTable.size(); ++i) {
        AirfieldRecord &airfield = campaign().AirfieldTable[i];
        airfield.country = static_cast<std::uint8_t>(i % 7);
        airfield.base_1944 = static_cast<std::uint8_t>(i % 13);
        AirfieldYearSlot &slot = airfield.yearSlots[i % 4];
        slot.allied_no_plane_a = (i & 1) != 0 ? flagSet : 0;
        slot.allied_no_plane_b = (i & 2) != 0 ? flagSet : 0;
        slot.german_no_plane = (i & 4) != 0 ? flagSet : 0;
    }
    const auto before = std::make_unique<Campaign>(campaign());
    for (int target = 301; target >= 0; --target) {
        Select("upd_tar_code", target);
        ExpectTargetShown(target);
    }
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, EveryRailwayLineIsShownAsTheTablesHoldItAndNoneIsChanged) {
    UseFilledTables();
    campaign().RailwayTable[100] = {.x1 = 0, .x2 = 0, .y1 = 1760, .y2 = 1760};
    campaign().RailwayTable[101] = {.x1 = 5, .x2 = 6, .y1 = 1760, .y2 = 30};
    campaign().RailwayTable[102] = {.x1 = 5, .x2 = 6, .y1 = 1759, .y2 = 31};
    campaign().RailwayTable[103] = {.x1 = 5, .x2 = 6, .y1 = 32, .y2 = 1759};
    campaign().RailwayTable[104] = {.x1 = 5, .x2 = 6, .y1 = 33, .y2 = 1760};
    const auto before = std::make_unique<Campaign>(campaign());
    std::array<int, 2> rows{};
    for (int line = 893; line >= 0; --line) {
        Select("upd_rail_linenum", line);
        ExpectLineShown(line, rows);
    }
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, EveryFrontlinePointIsShownAsTheTablesHoldItAndNoneIsChanged) {
    const auto before = std::make_unique<Campaign>(campaign());
    for (int slot = 19; slot >= 0; --slot) {
        Select("upd_frnt_num", slot);
        EXPECT_EQ(Number("upd_frnt_pointnum").value(), slot == 19 ? 0 : (slot % 2 == 0 ? 29 : 0));
        for (int step = 0; step < 30; ++step) {
            const int point = slot % 2 == 0 ? 29 - step : step;
            Select("upd_frnt_pointnum", point);
            const FrontlinePoint &shown = campaign()
                                              .FrontlineTable[static_cast<std::size_t>(slot)]
                                              .points[static_cast<std::size_t>(point)];
            ExpectPairShows("frnt_x", shown.x);
            ExpectPairShows("frnt_y", shown.y);
            EXPECT_EQ(Find<QCheckBox>(window(), "chk_frnt_map").isChecked(), shown.on_map == 65535);
        }
    }
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, Typing700TurnsInto639AtTheThirdKeyAndMinus3Into0AtThe3) {
    Select("upd_tar_code", 20);
    QLineEdit &column = Edit("txt_tar_x");
    const std::array<std::pair<Qt::Key, std::pair<const char *, int>>, 3> keys{
        {{Qt::Key_7, {"7", 7}}, {Qt::Key_0, {"70", 70}}, {Qt::Key_0, {"639", 639}}}};
    column.selectAll();
    for (const auto &[key, expected] : keys) {
        QTest::keyClick(&column, key);
        EXPECT_EQ(column.text(), expected.first);
        EXPECT_EQ(Target(20).x, expected.second);
    }
    column.selectAll();
    QTest::keyClick(&column, Qt::Key_Minus);
    EXPECT_EQ(column.text(), "-");
    EXPECT_EQ(Target(20).x, 639);
    QTest::keyClick(&column, Qt::Key_3);
    EXPECT_EQ(column.text(), "0");
    EXPECT_EQ(Target(20).x, 0);
}

TEST_F(PanelsInWindowTest, TypingMinus3IntoAnyFieldGives0) {
    int typedInto = 0;
    for (const char *mode :
         {"mnu_e_frontline", "mnu_e_railway", "mnu_e_roadint", "mnu_e_railint", "mnu_e_target"}) {
        Entry(mode).trigger();
        Find<QWidget>(window(), "fra_airfield").setEnabled(true);
        for (NumberField *const field : window().findChildren<NumberField *>()) {
            if (!field->isEnabled())
                continue;
            ++typedInto;
            field->SetNumber(1);
            field->selectAll();
            QTest::keyClicks(field, "-3");
            EXPECT_EQ(field->value(), 0) << field->objectName().toStdString();
        }
    }
    EXPECT_GE(typedInto, window().findChildren<NumberField *>().size());
}

TEST_F(PanelsInWindowTest, DisablingLinesAsksClearsTheTailTellsOfItAndRedraws) {
    Entry("mnu_e_railway").trigger();
    Select("upd_rail_linenum", 20);
    const auto expected = std::make_unique<Campaign>(campaign());
    EXPECT_EQ(BoxAnswered(QMessageBox::No, "cmd_rail_disable").text, "Disable all lines from 20 onwards?");
    EXPECT_TRUE(campaign() == *expected);
    EXPECT_EQ(DisabledLines(), "No Lines disabled");

    ASSERT_FALSE(expected->RailwayTable[20].IsUnused());
    const std::vector<std::uint32_t> drawnBefore = Pixels();
    BoxAnswered(QMessageBox::Yes, "cmd_rail_disable");
    for (std::size_t line = 20; line < railwayLineTotal; ++line)
        expected->RailwayTable[line] = {.fineOffsets = expected->RailwayTable[line].fineOffsets};
    expected->firstDisabledRailwayLine = 20;
    EXPECT_TRUE(campaign() == *expected);
    EXPECT_EQ(DisabledLines(), "Lines 20+ Disabled");
    for (const char *field : {"txt_rail_x1", "txt_rail_y1", "txt_rail_x2", "txt_rail_y2"})
        EXPECT_EQ(Text(field), "0") << field;
    EXPECT_NE(Pixels(), drawnBefore);

    Press<QPushButton>(window(), QStringLiteral("cmd_Enable"));
    expected->firstDisabledRailwayLine = 0;
    EXPECT_TRUE(campaign() == *expected) << "what was cleared stays cleared";
    EXPECT_EQ(DisabledLines(), "No Lines disabled");
}

TEST_F(PanelsInWindowTest, DisablingFromLine0ClearsEveryLine) {
    Entry("mnu_e_railway").trigger();
    EXPECT_EQ(BoxAnswered(QMessageBox::Yes, "cmd_rail_disable").text, "Disable all lines from 0 onwards?");
    for (const RailwayLine &line : campaign().RailwayTable)
        ASSERT_TRUE(line.IsUnused());
    EXPECT_EQ(DisabledLines(), "No Lines disabled") << "0 counts as none, says the redraw of the layer";
}

TEST_F(PanelsInWindowTest, DisablingFromLine0WithTheLayerHiddenLeavesTheButtonsOwnCaption) {
    Entry("mnu_e_railway").trigger();
    Entry("mnu_v_railways").trigger();
    BoxAnswered(QMessageBox::Yes, "cmd_rail_disable");
    EXPECT_EQ(DisabledLines(), "Lines 0+ Disabled");
}

TEST_F(PanelsInWindowTest, CopyingAFrontlineAsksAndFillsAllSlots) {
    UseFilledTables();
    Entry("mnu_e_frontline").trigger();
    Select("upd_frnt_num", 7);
    const auto expected = std::make_unique<Campaign>(campaign());
    EXPECT_EQ(BoxAnswered(QMessageBox::No, "cmd_frnt_copy").text,
              "Copy the current frontlines into all frontline slots?");
    EXPECT_TRUE(campaign() == *expected);
    BoxAnswered(QMessageBox::Yes, "cmd_frnt_copy");
    const Frontline copied = expected->FrontlineTable[7];
    expected->FrontlineTable.fill(copied);
    EXPECT_TRUE(campaign() == *expected);
    Select("upd_frnt_num", 12);
    EXPECT_EQ(Number("upd_frnt_x").value(), copied.points[0].x);
}

TEST_F(PanelsInWindowTest, ANameReachesItsEntryAndEveryTargetThatSharesIt) {
    Target(20).code = Target(30).code = 100;
    Select("upd_tar_code", 20);
    Edit("txt_tar_name").selectAll();
    QTest::keyClicks(&Edit("txt_tar_name"), "Kol");
    TypeCharacter("txt_tar_name", QStringLiteral("\u0160"));
    EXPECT_EQ(campaign().TargetNameTable[100], "Kol\x8A");
    EXPECT_EQ(Target(20).name, "Kol\x8A");
    EXPECT_EQ(Target(30).name, "Kol\x8A");
    Select("upd_tar_code", 30);
    EXPECT_EQ(Edit("txt_tar_name").text(), QStringLiteral("Kol\u0160"));
}

TEST_F(PanelsInWindowTest, ACharacterThatTheGameHasNoByteForIsRefusedWithAMessage) {
    Select("upd_tar_code", 20);
    const auto before = std::make_unique<Campaign>(campaign());
    const QString shown = Edit("txt_tar_name").text();
    for (const QString &character : {QStringLiteral("\u0416"), QStringLiteral("\u0100")}) {
        Find<QStatusBar>(window(), "sb_status").clearMessage();
        TypeCharacter("txt_tar_name", character);
        EXPECT_EQ(Edit("txt_tar_name").text(), shown);
        EXPECT_EQ(StatusMessage(), "The game's names cannot hold this character.");
    }
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, ANameThatTheNamesFileHasNoRoomForIsRefusedWithAMessage) {
    for (std::string &name : campaign().TargetNameTable)
        name.clear();
    Target(20).code = 100;
    Target(20).name = campaign().TargetNameTable[100] = "Ab";
    campaign().TargetNameTable[0] = std::string(31227 - 2 - 1, 'x');
    Select("upd_tar_code", 20);
    QLineEdit &name = Edit("txt_tar_name");
    name.end(false);
    QTest::keyClicks(&name, "c");
    EXPECT_EQ(campaign().TargetNameTable[100], "Abc");
    EXPECT_EQ(StatusMessage(), "");
    const auto before = std::make_unique<Campaign>(campaign());
    QTest::keyClicks(&name, "d");
    EXPECT_EQ(name.text(), "Abc");
    EXPECT_EQ(StatusMessage(), "The names file is full: shorten another name.");
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, AnAirfieldReference162DisablesTheFrameAndSaysWhy) {
    Target(20).airfield_mark = 65535;
    Target(20).airfield_ref = 162;
    Target(21).airfield_mark = 65535;
    Target(21).airfield_ref = 161;
    const auto before = std::make_unique<Campaign>(campaign());
    Select("upd_tar_code", 20);
    EXPECT_FALSE(Enabled("fra_airfield"));
    EXPECT_EQ(Text("txt_air_code"), "162");
    const QString toolTip = Find<QWidget>(window(), "fra_airfield").toolTip();
    EXPECT_TRUE(toolTip.contains("162")) << toolTip.toStdString();
    EXPECT_TRUE(toolTip.contains("161")) << toolTip.toStdString();
    EXPECT_TRUE(Find<QCheckBox>(window(), "chk_tar_airfield").isChecked());
    Select("upd_tar_code", 21);
    EXPECT_TRUE(Enabled("fra_airfield"));
    EXPECT_EQ(Text("txt_air_code"), "161");
    EXPECT_NE(Find<QWidget>(window(), "fra_airfield").toolTip(), toolTip);
    EXPECT_TRUE(campaign() == *before);
}

TEST_F(PanelsInWindowTest, BackInTargetModeTogglingTheAirfieldMarkEnablesTheFrame) {
    Target(20).airfield_mark = 0;
    Target(21).airfield_mark = 65535;
    Target(20).airfield_ref = Target(21).airfield_ref = 5;
    QCheckBox &mark = Find<QCheckBox>(window(), "chk_tar_airfield");
    Select("upd_tar_code", 20);
    GoToFrontlinesAndBack();
    EXPECT_FALSE(Enabled("fra_airfield"));
    mark.click();
    EXPECT_TRUE(Enabled("fra_airfield"));
    EXPECT_EQ(Target(20).airfield_mark, 65535);
    Select("upd_tar_code", 21);
    GoToFrontlinesAndBack();
    EXPECT_FALSE(Enabled("fra_airfield"));
    mark.click();
    EXPECT_FALSE(Enabled("fra_airfield"));
    EXPECT_EQ(Target(21).airfield_mark, 0);
    mark.click();
    EXPECT_TRUE(Enabled("fra_airfield"));
    EXPECT_EQ(Target(21).airfield_mark, 65535);
}

TEST_F(PanelsInWindowTest, SelectingAnAirfieldInFrontlineModeEnablesItsFrameAsSelectingOneAlwaysDoes) {
    Target(20).airfield_mark = 0;
    Target(21).airfield_mark = 65535;
    Select("upd_tar_code", 20);
    Entry("mnu_e_frontline").trigger();
    Select("upd_tar_code", 21);
    EXPECT_TRUE(Enabled("fra_airfield"));
    EXPECT_FALSE(Enabled("fra_target"));
    EXPECT_TRUE(Enabled("fra_frontline"));
    Select("upd_tar_code", 20);
    EXPECT_FALSE(Enabled("fra_airfield"));
}

using PanelsOfALoad = EditorWindow;

TEST_F(PanelsOfALoad, LoadingInFrontlineModeKeepsTheModeAndEnablesTheFramesOfTarget0AndOfItsAirfield) {
    for (const bool isAirfield : {true, false}) {
        WriteSample();
        const auto variation = MakeSampleCampaign();
        variation->TargetTable[0].airfield_ref = isAirfield ? 3 : 0;
        WriteSampleFiles(folder.Path(), EncodeCampaignFiles(*variation));
        window().Start(QString::fromStdString(SamplePath()));
        Entry("mnu_e_frontline").trigger();
        Number("upd_tar_code").SetNumber(100);
        window().Start(QString::fromStdString(SamplePath()));
        EXPECT_EQ(Number("upd_tar_code").value(), 0);
        EXPECT_TRUE(Entry("mnu_e_frontline").isChecked());
        EXPECT_EQ(PanelText("curredit"), "  FRONTLINES  ");
        for (const char *frame : {"fra_target", "fra_frontline"})
            EXPECT_TRUE(Find<QWidget>(window(), frame).isEnabled()) << frame;
        EXPECT_EQ(Find<QWidget>(window(), "fra_airfield").isEnabled(), isAirfield);
    }
}

}  // namespace
}  // namespace vtr
