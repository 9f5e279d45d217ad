#include <gtest/gtest.h>

#include <QLabel>

#include "ControlBox.h"
#include "PanelTesting.h"

namespace vtr {
namespace {

class ControlBoxTest : public ::testing::Test {
  protected:
    ControlBoxTest() { box.setEnabled(true); }

    std::string DisabledLines() { return Find<QLabel>(box, "lbl_disabled").text().toStdString(); }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    ControlBox box{*session, nullptr};
};

TEST_F(ControlBoxTest, EverySelectorKeepsToItsNumbersAndAllButTheFirstShowAllForZero) {
    struct Selector {
        const char *upDown;
        const char *text;
        const char *toolTip;
        int maximum;
        const char *zero;
    };
    const Selector selectors[] = {
        {"upd_viewfrontline", "txt_viewfrontline", "View Frontline Number...", 19, "0"},
        {"upd_view_railway", "txt_view_railway", "View Railway Number...", 893, "ALL"},
        {"upd_view_railint", "txt_view_railint", "View Rail Intercept Path Number...", 99, "ALL"},
        {"upd_view_roadint", "txt_view_roadint", "View Road Intercept Path Number...", 297, "ALL"},
    };
    for (const Selector &selector : selectors) {
        EXPECT_EQ(ShownIn(box, selector.text), selector.zero);
        EXPECT_EQ(Find<QLineEdit>(box, selector.text).toolTip().toStdString(), selector.toolTip);
        TypeInto(box, selector.text, "9999");
        EXPECT_EQ(ShownIn(box, selector.text), std::to_string(selector.maximum));
        EXPECT_FALSE(Field(box, selector.upDown).SetNumber(selector.maximum + 1));
        TypeInto(box, selector.text, "0");
        EXPECT_EQ(ShownIn(box, selector.text), selector.zero);
    }
}

TEST_F(ControlBoxTest, TheFrontlineAndTheRailwaySelectorTellTheirNumber) {
    const QSignalSpy frontlines(&box, &ControlBox::ViewFrontlineChanged);
    const QSignalSpy lines(&box, &ControlBox::ViewRailwayChanged);
    TypeInto(box, "txt_viewfrontline", "17");
    EXPECT_EQ(frontlines.back().front().toInt(), 17);
    TypeInto(box, "txt_viewfrontline", "0");
    EXPECT_EQ(frontlines.back().front().toInt(), 0);
    TypeInto(box, "txt_view_railway", "893");
    EXPECT_EQ(lines.back().front().toInt(), 893);
    TypeInto(box, "txt_view_railway", "0");
    EXPECT_EQ(lines.back().front().toInt(), 0);
}

TEST_F(ControlBoxTest, ThePathSelectorsAskForOneRedrawWithEachNumber) {
    const QSignalSpy changed(&box, &ControlBox::Changed);
    int redraws = 0;
    for (const char *selector : {"upd_view_railint", "upd_view_roadint"}) {
        for (const int number : {7, 99, 0}) {
            EXPECT_TRUE(Field(box, selector).SetNumber(number));
            EXPECT_EQ(changed.size(), ++redraws) << selector << ' ' << number;
        }
    }
}

TEST_F(ControlBoxTest, EverySelectorHasItsCaption) {
    QStringList captions;
    for (const QLabel *label : box.findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            captions.append(label->text());
    }
    EXPECT_EQ(captions,
              (QStringList{QStringLiteral("View Frontline #:"), QStringLiteral("View Railway #:"),
                           QStringLiteral("View Rail Int #:"), QStringLiteral("View Road Int #:")}));
}

TEST_F(ControlBoxTest, ShowsWhichLinesAreDisabled) {
    EXPECT_EQ(DisabledLines(), "No Lines disabled");
    campaign->firstDisabledRailwayLine = 850;
    box.Refresh();
    EXPECT_EQ(DisabledLines(), "Lines 850+ Disabled");
    box.ShowDisabledLines(QStringLiteral("Lines 0+ Disabled"));
    EXPECT_EQ(DisabledLines(), "Lines 0+ Disabled");
    campaign->firstDisabledRailwayLine = 0;
    box.Refresh();
    EXPECT_EQ(DisabledLines(), "No Lines disabled");
}

}  // namespace
}  // namespace vtr
