#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>

#include "GameText.h"
#include "PanelTesting.h"
#include "TargetPanel.h"

namespace vtr {
namespace {

class TargetPanelTest : public ::testing::Test {
  protected:
    TargetPanelTest() {
        panel.setEnabled(true);
        QObject::connect(&panel, &TargetPanel::AirfieldShown, &panel,
                         [this](std::optional<int> airfield) { airfields.push_back(airfield); });
    }

    void Select(int target) {
        Field(panel, "upd_tar_code").SetNumber(target);
        changed.clear();
        airfields.clear();
    }
    TargetRecord &Record(std::size_t target) { return campaign->TargetTable[target]; }
    /// Everything but the part of the campaign that restore puts back after an edit.
    template <typename Restore>
    void ExpectOnlyThisChanged(const Campaign &before, Restore restore) {
        EXPECT_TRUE(*campaign != before);
        restore();
        EXPECT_TRUE(*campaign == before);
    }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    TargetPanel panel{*session, nullptr};
    QSignalSpy changed{&panel, &Panel::Changed};
    QSignalSpy messages{&panel, &TargetPanel::StatusMessage};
    std::vector<std::optional<int>> airfields;
};

TEST_F(TargetPanelTest, ShowsEveryTargetAsTheTablesHoldIt) {
    for (int target = 0; target < 302; ++target) {
        Select(target);
        const TargetRecord &record = Record(static_cast<std::size_t>(target));
        EXPECT_EQ(ShownIn(panel, "txt_tar_code"), std::to_string(target));
        EXPECT_EQ(ShownIn(panel, "txt_tar_x"), std::to_string(record.x)) << target;
        EXPECT_EQ(ShownIn(panel, "txt_tar_y"), std::to_string(record.y)) << target;
        const auto &fine = campaign->TargetTable[static_cast<std::size_t>(target)].fineOffsets;
        EXPECT_EQ(ShownIn(panel, "txt_tar_xm"), RoundedMetres(fine[0])) << target;
        EXPECT_EQ(ShownIn(panel, "txt_tar_ym"), RoundedMetres(fine[1])) << target;
        EXPECT_EQ(GameTextOf(Find<QLineEdit>(panel, "txt_tar_name").text()), record.name) << target;
        EXPECT_EQ(ShownIn(panel, "txt_tar_numtargets"), std::to_string(record.count)) << target;
        EXPECT_EQ(Find<QCheckBox>(panel, "chk_tar_airfield").isChecked(), record.airfield_mark != 0);
    }
}

TEST_F(TargetPanelTest, SelectingEveryTargetInTurnChangesNothing) {
    const auto before = std::make_unique<Campaign>(*campaign);
    for (int target = 301; target >= 0; --target)
        Field(panel, "upd_tar_code").SetNumber(target);
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(TargetPanelTest, EnterInEveryFieldChangesNothing) {
    Select(7);
    const auto before = std::make_unique<Campaign>(*campaign);
    for (NumberField *field : panel.findChildren<NumberField *>())
        QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(&Find<QLineEdit>(panel, "txt_tar_name"), Qt::Key_Return);
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(TargetPanelTest, SelectingATargetAsksForOneRedraw) {
    Select(7);
    Field(panel, "upd_tar_code").SetNumber(8);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(TargetPanelTest, TypingMinus3IntoAnyFieldTurnsIntoZero) {
    Select(7);
    for (const char *name :
         {"txt_tar_x", "txt_tar_y", "txt_tar_xm", "txt_tar_ym", "txt_tar_numtargets", "txt_tar_code"}) {
        TypeInto(panel, name, "-3");
        EXPECT_EQ(ShownIn(panel, name), "0") << name;
    }
    EXPECT_EQ(Record(7).x, 0);
    EXPECT_EQ(Record(7).y, 0);
    EXPECT_EQ(campaign->TargetTable[7].fineOffsets, (FineOffsets<2>{0, 0}));
    EXPECT_EQ(Record(7).count, 0);
}

TEST_F(TargetPanelTest, EveryFieldIsHeldAtItsMaximum) {
    const std::pair<const char *, const char *> maxima[] = {
        {"txt_tar_x", "639"},   {"txt_tar_y", "319"},         {"txt_tar_xm", "4100"},
        {"txt_tar_ym", "4100"}, {"txt_tar_numtargets", "64"}, {"txt_tar_code", "301"}};
    for (const auto &[name, maximum] : maxima) {
        TypeInto(panel, name, "99999");
        EXPECT_EQ(ShownIn(panel, name), maximum) << name;
    }
}

TEST_F(TargetPanelTest, APastedFractionIsCutInTheTargetNumberAndRoundedInEveryOtherField) {
    Select(7);
    for (const auto &[name, shown] : {std::pair("txt_tar_x", "13"),
                                      {"txt_tar_y", "13"},
                                      {"txt_tar_xm", "13"},
                                      {"txt_tar_ym", "13"},
                                      {"txt_tar_numtargets", "13"},
                                      {"txt_tar_code", "12"}}) {
        auto &edit = Find<QLineEdit>(panel, name);
        QApplication::clipboard()->setText(QStringLiteral("12.7"));
        edit.selectAll();
        edit.paste();
        EXPECT_EQ(ShownIn(panel, name), shown) << name;
    }
    EXPECT_EQ(Record(7).x, 13);
    EXPECT_EQ(ShownIn(panel, "txt_tar_x"), std::to_string(Record(12).x));
}

TEST_F(TargetPanelTest, EveryFieldChangesJustItsFieldAndAsksForOneRedraw) {
    Select(7);
    const auto before = std::make_unique<Campaign>(*campaign);
    const TargetRecord old = Record(7);
    const auto oldFine = campaign->TargetTable[7].fineOffsets;
    const auto edit = [&](const char *name, int number) {
        ASSERT_TRUE(Field(panel, name).SetNumber(number));
        EXPECT_EQ(changed.size(), 1) << name;
        changed.clear();
    };
    edit("upd_tar_y", 318);
    EXPECT_EQ(Record(7).y, 318);
    ExpectOnlyThisChanged(*before, [&] { Record(7).y = old.y; });
    edit("upd_tar_xm", 4100);
    EXPECT_EQ(campaign->TargetTable[7].fineOffsets[0], 4100);
    ExpectOnlyThisChanged(*before, [&] { campaign->TargetTable[7].fineOffsets[0] = oldFine[0]; });
    edit("upd_tar_ym", 17);
    EXPECT_EQ(campaign->TargetTable[7].fineOffsets[1], 17);
    ExpectOnlyThisChanged(*before, [&] { campaign->TargetTable[7].fineOffsets[1] = oldFine[1]; });
    edit("upd_tar_numtargets", (old.count + 1) % 65);
    EXPECT_EQ(Record(7).count, (old.count + 1) % 65);
    ExpectOnlyThisChanged(*before, [&] { Record(7).count = old.count; });
}

TEST_F(TargetPanelTest, ARecordOutsideTheRangeStaysUntilItIsEdited) {
    Record(9).y = 1760;
    Record(9).count = 255;
    const auto before = std::make_unique<Campaign>(*campaign);
    Select(9);
    EXPECT_EQ(ShownIn(panel, "txt_tar_y"), "1760");
    EXPECT_EQ(ShownIn(panel, "txt_tar_numtargets"), "255");
    QTest::keyClick(&Field(panel, "upd_tar_y"), Qt::Key_Return);
    Select(10);
    EXPECT_TRUE(*campaign == *before);
    Select(9);
    QTest::keyClick(&Field(panel, "upd_tar_y"), Qt::Key_Up);
    EXPECT_EQ(Record(9).y, 319);
    EXPECT_EQ(Record(9).count, 255);
}

TEST_F(TargetPanelTest, RefreshShowsAnotherCampaignsTargetThoughTheSelectorStays) {
    Select(0);
    Record(0).x = 11;
    Record(0).name = "elsewhere";
    panel.Refresh();
    EXPECT_EQ(ShownIn(panel, "txt_tar_x"), "11");
    EXPECT_EQ(ShownIn(panel, "txt_tar_name"), "elsewhere");
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(airfields.size(), 1U);
}

TEST_F(TargetPanelTest, ATargetWithoutFineOffsetsShowsZeros) {
    campaign->TargetTable[3].fineOffsets = {};
    Select(3);
    EXPECT_EQ(ShownIn(panel, "txt_tar_xm"), "0");
    EXPECT_EQ(campaign->TargetTable[3].fineOffsets[0], 0);
}

TEST_F(TargetPanelTest, ANameGoesToItsEntryAndToAllTargetsThatShareIt) {
    Select(7);
    TypeInto(panel, "txt_tar_name", "Mill");
    EXPECT_EQ(campaign->TargetNameTable[7], "Mill");
    EXPECT_EQ(Record(7).name, "Mill");
    EXPECT_EQ(Record(157).name, "Mill");
    EXPECT_EQ(Record(8).name, "Place 8");
    EXPECT_EQ(changed.size(), 4);
    Select(157);
    EXPECT_EQ(ShownIn(panel, "txt_tar_name"), "Mill");
}

TEST_F(TargetPanelTest, ANameMayBeEmptied) {
    Select(8);
    auto &name = Find<QLineEdit>(panel, "txt_tar_name");
    name.selectAll();
    QTest::keyClick(&name, Qt::Key_Delete);
    EXPECT_EQ(campaign->TargetNameTable[8], "");
}

TEST_F(TargetPanelTest, ANameMayHoldEveryCharacterOfTheGameAndNoOther) {
    Select(8);
    auto &name = Find<QLineEdit>(panel, "txt_tar_name");
    const auto paste = [&name](const QString &text) {
        QApplication::clipboard()->setText(text);
        name.selectAll();
        name.paste();
    };
    paste(QStringLiteral("M\u00FChle \u20AC\u017D"));
    EXPECT_EQ(campaign->TargetNameTable[8], "M\xFChle \x80\x8E");
    EXPECT_EQ(messages.size(), 0);
    paste(QStringLiteral("\u041C\u043E\u0441\u0442"));
    EXPECT_EQ(campaign->TargetNameTable[8], "M\xFChle \x80\x8E");
    EXPECT_EQ(name.text(), QStringLiteral("M\u00FChle \u20AC\u017D"));
    EXPECT_GE(messages.size(), 1);
    for (const QString &text : {QStringLiteral("\u041C"), QString("a") + QChar(0)}) {
        name.setText(text);
        EXPECT_EQ(name.text(), QStringLiteral("M\u00FChle \u20AC\u017D"));
        EXPECT_EQ(campaign->TargetNameTable[8], "M\xFChle \x80\x8E");
    }
}

TEST_F(TargetPanelTest, TheBytesThatHaveNoCharacterSurviveAnEditBesideThem) {
    Record(8).name = campaign->TargetNameTable[8] = "\x81\x8D\x8F\x90\x9D";
    Select(8);
    auto &name = Find<QLineEdit>(panel, "txt_tar_name");
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClicks(&name, QStringLiteral("a"));
    EXPECT_EQ(campaign->TargetNameTable[8],
              "\x81\x8D\x8F\x90\x9D"
              "a");
}

TEST_F(TargetPanelTest, ANameThatWouldOverflowTheNamesFileIsRefusedWhileTyping) {
    Select(8);
    std::size_t others = 0;
    for (std::size_t entry = 0; entry < 307; ++entry)
        others += campaign->TargetNameTable[entry].size();
    campaign->TargetNameTable[307] = std::string(31227 - others - 1, 'x');
    auto &name = Find<QLineEdit>(panel, "txt_tar_name");
    QTest::keyClick(&name, Qt::Key_End);
    QTest::keyClicks(&name, QStringLiteral("abc"));
    EXPECT_EQ(campaign->TargetNameTable[8], "Place 8a");
    EXPECT_EQ(ShownIn(panel, "txt_tar_name"), "Place 8a");
    ASSERT_GE(messages.size(), 1);
    EXPECT_EQ(messages.front().front().toString(),
              QStringLiteral("The names file is full: shorten another name."));
    QTest::keyClick(&name, Qt::Key_Backspace);
    EXPECT_EQ(campaign->TargetNameTable[8], "Place 8");
}

TEST_F(TargetPanelTest, SelectingATargetTellsWhichAirfieldItIs) {
    Record(4).airfield_ref = 77;
    Field(panel, "upd_tar_code").SetNumber(4);
    Field(panel, "upd_tar_code").SetNumber(5);
    EXPECT_EQ(airfields, (std::vector<std::optional<int>>{77, std::nullopt}));
}

TEST_F(TargetPanelTest, TheAirfieldBoxStoresTheMarkAndTellsTheAirfield) {
    Select(5);
    const auto before = std::make_unique<Campaign>(*campaign);
    auto &box = Find<QCheckBox>(panel, "chk_tar_airfield");
    box.click();
    EXPECT_EQ(Record(5).airfield_mark, 65535);
    ExpectOnlyThisChanged(*before, [&] { Record(5).airfield_mark = 0; });
    box.click();
    EXPECT_EQ(Record(5).airfield_mark, 0);
    EXPECT_EQ(airfields, (std::vector<std::optional<int>>{0, std::nullopt}));
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(TargetPanelTest, TickingTheAirfieldBoxOfATargetWhoseReferenceIs0SaysThatNoFileKeepsIt) {
    auto &box = Find<QCheckBox>(panel, "chk_tar_airfield");
    Record(5).airfield_ref = 0;
    Record(7).airfield_ref = 1;
    Select(7);
    box.click();
    EXPECT_EQ(messages.size(), 0);
    Record(5).airfield_mark = 65535;
    Select(5);
    EXPECT_TRUE(box.isChecked());
    box.click();
    EXPECT_EQ(messages.size(), 0);
    box.click();
    ASSERT_EQ(messages.size(), 1);
    EXPECT_EQ(messages.front().front().toString(),
              "This tick will not be saved: the target has no airfield record of its own (its number is 0).");
    Record(81).airfield_ref = 0;
    Record(81).airfield_mark = 0;
    Select(81);
    box.click();
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(messages.size(), 1) << "every load marks this target";
}

TEST_F(TargetPanelTest, AnyMarkButZeroChecksTheBoxAndStays) {
    Record(5).airfield_mark = 1;
    Select(5);
    EXPECT_TRUE(Find<QCheckBox>(panel, "chk_tar_airfield").isChecked());
    EXPECT_EQ(Record(5).airfield_mark, 1);
}

TEST_F(TargetPanelTest, TheButtonsAskTheWindow) {
    const QSignalSpy find(&panel, &TargetPanel::FindRequested);
    const QSignalSpy precise(&panel, &TargetPanel::PreciseRequested);
    const QSignalSpy reorder(&panel, &TargetPanel::ReorderRequested);
    const QSignalSpy tile(&panel, &TargetPanel::TileRequested);
    EXPECT_EQ(Find<QPushButton>(panel, "cmd_tar_tile").text(), "View &Tile...");
    EXPECT_EQ(Find<QPushButton>(panel, "cmd_reorder").text(), "Reorder Targets for GRIDDATA.DAT");
    Find<QPushButton>(panel, "cmd_tar_tile").click();
    Find<QPushButton>(panel, "cmd_target_search").click();
    Find<QPushButton>(panel, "cmd_tar_precise").click();
    Find<QPushButton>(panel, "cmd_reorder").click();
    EXPECT_EQ(find.size(), 1);
    EXPECT_EQ(precise.size(), 1);
    EXPECT_EQ(reorder.size(), 1);
    EXPECT_EQ(tile.size(), 1);
}

}  // namespace
}  // namespace vtr
