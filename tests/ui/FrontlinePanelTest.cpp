#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>

#include "FrontlinePanel.h"
#include "PanelTesting.h"

namespace vtr {
namespace {

class FrontlinePanelTest : public ::testing::Test {
  protected:
    FrontlinePanelTest() { panel.setEnabled(true); }

    void Select(int slot, int point) {
        Field(panel, "upd_frnt_num").SetNumber(slot);
        Field(panel, "upd_frnt_pointnum").SetNumber(point);
        changed.clear();
    }
    FrontlinePoint &Point(std::size_t slot, std::size_t point) {
        return campaign->FrontlineTable[slot].points[point];
    }
    void ExpectShown(const FrontlinePoint &point) {
        EXPECT_EQ(ShownIn(panel, "txt_frnt_x"), std::to_string(point.x));
        EXPECT_EQ(ShownIn(panel, "txt_frnt_y"), std::to_string(point.y));
        EXPECT_EQ(onMap.isChecked(), point.on_map == 65535);
    }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    FrontlinePanel panel{*session, nullptr};
    QCheckBox &onMap = Find<QCheckBox>(panel, "chk_frnt_map");
    QSignalSpy changed{&panel, &Panel::Changed};
};

TEST_F(FrontlinePanelTest, ShowsEveryPointAsTheTableHoldsItAndChangesNothing) {
    const auto before = std::make_unique<Campaign>(*campaign);
    for (std::size_t slot = 0; slot < 20; ++slot) {
        for (std::size_t point = 0; point < 30; ++point) {
            Select(static_cast<int>(slot), static_cast<int>(point));
            ExpectShown(Point(slot, point));
        }
    }
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(FrontlinePanelTest, AnotherSlotKeepsThePointNumberAndShowsItsPoint) {
    Point(3, 17).on_map = 0;
    Point(4, 17).on_map = 65535;
    Select(3, 17);
    Field(panel, "upd_frnt_num").SetNumber(4);
    EXPECT_EQ(ShownIn(panel, "txt_frnt_pointnum"), "17");
    ExpectShown(Point(4, 17));
    EXPECT_EQ(changed.size(), 1);
    Field(panel, "upd_frnt_pointnum").SetNumber(18);
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(FrontlinePanelTest, EveryFieldChangesJustItsFieldAndAsksForOneRedraw) {
    Select(19, 29);
    const auto before = std::make_unique<Campaign>(*campaign);
    const FrontlinePoint old = Point(19, 29);
    Field(panel, "upd_frnt_x").SetNumber((old.x + 1) % 640);
    EXPECT_EQ(Point(19, 29),
              (FrontlinePoint{static_cast<std::int16_t>((old.x + 1) % 640), old.y, old.on_map}));
    EXPECT_EQ(changed.size(), 1);
    Point(19, 29) = old;
    EXPECT_TRUE(*campaign == *before);
    Field(panel, "upd_frnt_y").SetNumber((old.y + 1) % 320);
    EXPECT_EQ(Point(19, 29),
              (FrontlinePoint{old.x, static_cast<std::int16_t>((old.y + 1) % 320), old.on_map}));
    EXPECT_EQ(changed.size(), 2);
    Point(19, 29) = old;
    EXPECT_TRUE(*campaign == *before);
    onMap.click();
    EXPECT_EQ(Point(19, 29).on_map, old.on_map == 0 ? 65535 : 0);
    EXPECT_EQ(changed.size(), 3);
    onMap.click();
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(FrontlinePanelTest, TypedNumbersAreHeldInTheirRange) {
    for (const auto &[name, maximum] :
         {std::pair{"txt_frnt_x", "639"}, std::pair{"txt_frnt_y", "319"}, std::pair{"txt_frnt_num", "19"},
          std::pair{"txt_frnt_pointnum", "29"}}) {
        TypeInto(panel, name, "9999");
        EXPECT_EQ(ShownIn(panel, name), maximum);
        TypeInto(panel, name, "-3");
        EXPECT_EQ(ShownIn(panel, name), "0");
    }
}

TEST_F(FrontlinePanelTest, AMarkerPointIsShownAsItIsUntilItIsPutOnTheMap) {
    Point(5, 6) = {.x = 160, .y = 1760};
    Point(5, 7) = {.x = 159, .y = 1759};
    const auto before = std::make_unique<Campaign>(*campaign);
    Select(5, 6);
    EXPECT_EQ(ShownIn(panel, "txt_frnt_y"), "1760");
    Select(5, 7);
    EXPECT_EQ(ShownIn(panel, "txt_frnt_y"), "1759");
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(campaign->FrontlineTable[5].point_count(), 28);
    TypeInto(panel, "txt_frnt_y", "12");
    EXPECT_EQ(Point(5, 7), (FrontlinePoint{.x = 159, .y = 12}));
    EXPECT_EQ(campaign->FrontlineTable[5].point_count(), 29);
}

TEST_F(FrontlinePanelTest, TheMapBoxSaysWhatItIsFor) {
    EXPECT_EQ(onMap.text(), QStringLiteral("On Map?"));
    EXPECT_EQ(onMap.toolTip(), QStringLiteral("Display it on the briefing map?"));
}

TEST_F(FrontlinePanelTest, CopyingAsksAndMakesAllSlotsAlike) {
    Select(7, 3);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::Yes);
    Find<QPushButton>(panel, "cmd_frnt_copy").click();
    EXPECT_EQ(box.text, QStringLiteral("Copy the current frontlines into all frontline slots?"));
    EXPECT_EQ(box.title, QStringLiteral("VTR Target Editor"));
    EXPECT_EQ(box.icon, QMessageBox::Question);
    EXPECT_EQ(box.buttons, QMessageBox::Yes | QMessageBox::No);
    for (const Frontline &frontline : campaign->FrontlineTable)
        EXPECT_EQ(frontline, FilledCampaign()->FrontlineTable[7]);
    EXPECT_EQ(changed.size(), 1);
    ExpectShown(Point(7, 3));
}

TEST_F(FrontlinePanelTest, EnterCopiesNothing) {
    const auto before = std::make_unique<Campaign>(*campaign);
    bool asked = false;
    WhenModalOpens<QMessageBox>([&asked](QMessageBox &box) {
        asked = true;
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Find<QPushButton>(panel, "cmd_frnt_copy").click();
    EXPECT_TRUE(asked);
    EXPECT_TRUE(*campaign == *before);
}

TEST_F(FrontlinePanelTest, AnsweringNoCopiesNothing) {
    const auto before = std::make_unique<Campaign>(*campaign);
    ShownBox box;
    AnswerNextBox(box, QMessageBox::No);
    Find<QPushButton>(panel, "cmd_frnt_copy").click();
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(changed.size(), 0);
}

}  // namespace
}  // namespace vtr
