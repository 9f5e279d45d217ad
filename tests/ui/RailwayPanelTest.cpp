#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>

#include "PanelTesting.h"
#include "RailwayPanel.h"

namespace vtr {
namespace {

class RailwayPanelTest : public ::testing::Test {
  protected:
    RailwayPanelTest() { panel.setEnabled(true); }

    void Select(int line) {
        Field(panel, "upd_rail_linenum").SetNumber(line);
        changed.clear();
    }
    RailwayLine &Line(std::size_t line) { return campaign->RailwayTable[line]; }
    void Click(const char *name) { Find<QPushButton>(panel, name).click(); }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    RailwayPanel panel{*session, nullptr};
    QSignalSpy changed{&panel, &Panel::Changed};
    QSignalSpy captions{&panel, &RailwayPanel::DisabledLinesChanged};
};

TEST_F(RailwayPanelTest, ShowsEveryLineAsTheTablesHoldIt) {
    for (int number = 0; number < 894; ++number) {
        Select(number);
        const RailwayLine &line = Line(static_cast<std::size_t>(number));
        EXPECT_EQ(ShownIn(panel, "txt_rail_linenum"), std::to_string(number));
        EXPECT_EQ(ShownIn(panel, "txt_rail_x1"), std::to_string(line.x1)) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_x2"), std::to_string(line.x2)) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_y1"), std::to_string(line.y1)) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_y2"), std::to_string(line.y2)) << number;
        const auto &fine = line.fineOffsets;
        EXPECT_EQ(ShownIn(panel, "txt_rail_xm1"), RoundedMetres(fine[0])) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_xm2"), RoundedMetres(fine[1])) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_ym1"), RoundedMetres(fine[2])) << number;
        EXPECT_EQ(ShownIn(panel, "txt_rail_ym2"), RoundedMetres(fine[3])) << number;
    }
}

TEST_F(RailwayPanelTest, SelectingEveryLineInTurnChangesNothing) {
    for (std::size_t line = 0; line < 894; line += 5)
        Line(line) = {.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760};
    for (std::size_t line = 1; line < 894; line += 5)
        Line(line) = {.x1 = -4, .x2 = 700, .y1 = 1759, .y2 = -9};
    const auto before = std::make_unique<Campaign>(*campaign);
    for (int line = 893; line >= 0; --line)
        Field(panel, "upd_rail_linenum").SetNumber(line);
    for (NumberField *field : panel.findChildren<NumberField *>())
        QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(RailwayPanelTest, SelectingALineAsksForOneRedraw) {
    Select(3);
    Field(panel, "upd_rail_linenum").SetNumber(4);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(RailwayPanelTest, EveryFieldChangesJustItsField) {
    Select(893);
    const auto before = std::make_unique<Campaign>(*campaign);
    const auto edit = [&](const char *name, int number, auto &stored, const auto &expected) {
        const auto old = stored;
        ASSERT_TRUE(Field(panel, name).SetNumber(number));
        EXPECT_EQ(stored, expected) << name;
        stored = old;
        EXPECT_TRUE(*campaign == *before) << name;
    };
    RailwayLine &line = Line(893);
    edit("upd_rail_x1", 639, line.x1, 639);
    edit("upd_rail_x2", 638, line.x2, 638);
    edit("upd_rail_y1", 319, line.y1, 319);
    edit("upd_rail_y2", 318, line.y2, 318);
    EXPECT_EQ(changed.size(), 4);
    auto &fine = campaign->RailwayTable[893].fineOffsets;
    edit("upd_rail_xm1", 4100, fine[0], 4100);
    edit("upd_rail_xm2", 4099, fine[1], 4099);
    edit("upd_rail_ym1", 4098, fine[2], 4098);
    edit("upd_rail_ym2", 4097, fine[3], 4097);
    EXPECT_EQ(changed.size(), 4) << "the map does not show fine offsets";
}

TEST_F(RailwayPanelTest, TypedNumbersAreHeldInTheirRange) {
    const std::pair<const char *, const char *> maxima[] = {
        {"txt_rail_linenum", "893"}, {"txt_rail_x1", "639"},   {"txt_rail_x2", "639"},
        {"txt_rail_y1", "319"},      {"txt_rail_y2", "319"},   {"txt_rail_xm1", "4100"},
        {"txt_rail_ym1", "4100"},    {"txt_rail_xm2", "4100"}, {"txt_rail_ym2", "4100"}};
    for (const auto &[name, maximum] : maxima) {
        TypeInto(panel, name, "99999");
        EXPECT_EQ(ShownIn(panel, name), maximum) << name;
        TypeInto(panel, name, "-3");
        EXPECT_EQ(ShownIn(panel, name), "0") << name;
    }
}

struct MarkerCase {
    RailwayLine line;
    const char *y1;
    const char *y2;
};

TEST_F(RailwayPanelTest, MarkerRowsLeaveTheRowFieldsAsTheyWere) {
    Line(0) = {.x1 = 1, .x2 = 2, .y1 = 33, .y2 = 44};
    panel.Refresh();
    const MarkerCase cases[] = {
        {{.x1 = 5, .x2 = 6, .y1 = 1759, .y2 = 8}, "33", "8"},
        {{.x1 = 5, .x2 = 6, .y1 = 1760, .y2 = 8}, "33", "44"},
        {{.x1 = 5, .x2 = 6, .y1 = 7, .y2 = 1759}, "7", "44"},
        {{.x1 = 5, .x2 = 6, .y1 = 7, .y2 = 1760}, "7", "1760"},
        {{.x1 = 5, .x2 = 6, .y1 = 1759, .y2 = 1760}, "33", "1760"},
        {{.x1 = 160, .x2 = 160, .y1 = 1760, .y2 = 1760}, "33", "44"},
    };
    for (const MarkerCase &marker : cases) {
        Line(1) = marker.line;
        Select(0);
        Select(1);
        EXPECT_EQ(ShownIn(panel, "txt_rail_x1"), std::to_string(marker.line.x1));
        EXPECT_EQ(ShownIn(panel, "txt_rail_x2"), std::to_string(marker.line.x2));
        EXPECT_EQ(ShownIn(panel, "txt_rail_y1"), marker.y1) << marker.line.y1 << ' ' << marker.line.y2;
        EXPECT_EQ(ShownIn(panel, "txt_rail_y2"), marker.y2) << marker.line.y1 << ' ' << marker.line.y2;
        EXPECT_EQ(Line(1), marker.line);
    }
}

TEST_F(RailwayPanelTest, DisablingClearsTheLinesFromTheShownOneOn) {
    Select(850);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::Yes);
    Click("cmd_rail_disable");
    EXPECT_EQ(box.text, QStringLiteral("Disable all lines from 850 onwards?"));
    EXPECT_EQ(box.title, QStringLiteral("VTR Target Editor"));
    EXPECT_EQ(box.icon, QMessageBox::Question);
    EXPECT_EQ(box.buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 850);
    EXPECT_EQ(Line(849), FilledCampaign()->RailwayTable[849]);
    for (const std::size_t number : std::initializer_list<std::size_t>{850, 893}) {
        EXPECT_TRUE(Line(number).IsUnused());
        EXPECT_EQ(Line(number).fineOffsets, FilledCampaign()->RailwayTable[number].fineOffsets);
    }
    EXPECT_EQ(ShownIn(panel, "txt_rail_x1"), "0");
    EXPECT_EQ(ShownIn(panel, "txt_rail_y2"), "0");
    EXPECT_EQ(ShownIn(panel, "txt_rail_xm1"), RoundedMetres(campaign->RailwayTable[850].fineOffsets[0]));
    ASSERT_EQ(captions.size(), 1);
    EXPECT_EQ(captions.front().front().toString(), QStringLiteral("Lines 850+ Disabled"));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(RailwayPanelTest, AnsweringYesToDisableWithLine0ClearsEveryLine) {
    Select(0);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::Yes);
    Click("cmd_rail_disable");
    EXPECT_EQ(box.text, QStringLiteral("Disable all lines from 0 onwards?"));
    for (const RailwayLine &line : campaign->RailwayTable)
        EXPECT_TRUE(line.IsUnused());
    EXPECT_EQ(captions.back().front().toString(), QStringLiteral("Lines 0+ Disabled"));
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 0);
}

TEST_F(RailwayPanelTest, NoIsTheButtonThatEnterPressesInTheQuestion) {
    Select(850);
    const auto before = std::make_unique<Campaign>(*campaign);
    bool asked = false;
    WhenModalOpens<QMessageBox>([&asked](QMessageBox &box) {
        asked = true;
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Click("cmd_rail_disable");
    EXPECT_TRUE(asked);
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(RailwayPanelTest, TheButtonThatDisablesLinesStandsInARowOfItsOwn) {
    panel.resize(panel.sizeHint());
    panel.show();
    const QRect disable = Find<QPushButton>(panel, "cmd_rail_disable").geometry();
    for (const QWidget *other : panel.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        const QRect place = other->geometry();
        EXPECT_TRUE(place == disable || place.bottom() < disable.top() || place.top() > disable.bottom())
            << other->objectName().toStdString();
    }
}

TEST_F(RailwayPanelTest, AnsweringNoDisablesNothing) {
    Select(850);
    const auto before = std::make_unique<Campaign>(*campaign);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::No);
    Click("cmd_rail_disable");
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(captions.size(), 0);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(RailwayPanelTest, EnablingAllForgetsTheDisabledLinesButRestoresNone) {
    Select(850);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::Yes);
    Click("cmd_rail_disable");
    Click("cmd_Enable");
    EXPECT_EQ(Find<QPushButton>(panel, "cmd_rail_disable").text(), QStringLiteral("Disable Lines"));
    EXPECT_EQ(Find<QPushButton>(panel, "cmd_Enable").text(), QStringLiteral("Enable All"));
    EXPECT_EQ(campaign->firstDisabledRailwayLine, 0);
    EXPECT_TRUE(Line(850).IsUnused());
    EXPECT_EQ(captions.back().front().toString(), QStringLiteral("No Lines disabled"));
}

TEST_F(RailwayPanelTest, TheAutomaticIncrementBoxStartsCleared) {
    const auto &box = Find<QCheckBox>(panel, "chk_rail_auto");
    EXPECT_EQ(box.text(), QStringLiteral("Automatically Increment Line #?"));
    EXPECT_FALSE(box.isChecked());
}

TEST_F(RailwayPanelTest, ThePreciseButtonsAskForTheirEnd) {
    const QSignalSpy precise(&panel, &RailwayPanel::PreciseRequested);
    Click("cmd_rail_precise1");
    Click("cmd_rail_precise2");
    ASSERT_EQ(precise.size(), 2);
    EXPECT_EQ(precise[0].front().toInt(), 1);
    EXPECT_EQ(precise[1].front().toInt(), 2);
}

}  // namespace
}  // namespace vtr
