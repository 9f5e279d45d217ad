#include <gtest/gtest.h>

#include <QVBoxLayout>

#include "AirfieldPanel.h"
#include "ControlBox.h"
#include "FrontlinePanel.h"
#include "Panel.h"
#include "PanelTesting.h"
#include "RailwayPanel.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"

namespace vtr {
namespace {

class EveryPanelTest : public ::testing::Test {
  protected:
    EveryPanelTest() {
        auto *airfield = new AirfieldPanel(*session, &window);
        airfield->ShowAirfield(1);
        panels = {new TargetPanel(*session, &window),
                  airfield,
                  new FrontlinePanel(*session, &window),
                  new RailwayPanel(*session, &window),
                  new WaypointPanel(WaypointPanel::Kind::Road, *session, &window),
                  new WaypointPanel(WaypointPanel::Kind::Rail, *session, &window),
                  new ControlBox(*session, &window)};
        auto *layout = new QVBoxLayout(&window);
        for (Panel *panel : panels) {
            EXPECT_FALSE(panel->isEnabled() && panel != airfield) << "until there is something to edit";
            panel->setEnabled(true);
            layout->addWidget(panel);
        }
        window.show();
    }

    std::unique_ptr<Session> session = FilledSession();
    QWidget window;
    std::vector<Panel *> panels;
};

/// The controls of the panel that the Tab key stops at, in its order.
std::vector<QWidget *> TabStops(Panel &panel) {
    std::vector<QWidget *> stops;
    for (QWidget *next = panel.nextInFocusChain(); next != &panel; next = next->nextInFocusChain()) {
        const bool stops_here = (next->focusPolicy() & Qt::TabFocus) != 0 && next->focusProxy() == nullptr;
        if (stops_here && next->parentWidget() == &panel)
            stops.push_back(next);
    }
    return stops;
}

TEST_F(EveryPanelTest, EveryFieldHasANameAndATooltip) {
    for (const Panel *panel : panels) {
        for (const NumberField *field : panel->findChildren<NumberField *>()) {
            EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
            EXPECT_TRUE(field->toolTip().contains(QString::number(field->maximum())))
                << field->objectName().toStdString();
        }
    }
}

TEST_F(EveryPanelTest, TabGoesThroughTheControlsInReadingOrder) {
    for (Panel *panel : panels) {
        const std::vector<QWidget *> stops = TabStops(*panel);
        EXPECT_GE(stops.size(), 4U) << panel->objectName().toStdString();
        for (std::size_t i = 1; i < stops.size(); ++i) {
            const QPoint before = stops[i - 1]->geometry().center();
            const QPoint here = stops[i]->geometry().center();
            const bool sameRow = std::abs(before.y() - here.y()) < 8;
            EXPECT_TRUE(sameRow ? before.x() < here.x() : before.y() < here.y() || before.x() < here.x())
                << stops[i - 1]->objectName().toStdString() << " before "
                << stops[i]->objectName().toStdString();
        }
    }
}

TEST_F(EveryPanelTest, NothingIsClipped) {
    for (const Panel *panel : panels) {
        for (const QWidget *child : panel->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_GE(child->width(), child->minimumSizeHint().width()) << child->objectName().toStdString();
            EXPECT_GE(child->height(), child->minimumSizeHint().height())
                << child->objectName().toStdString();
            EXPECT_TRUE(panel->rect().contains(child->geometry())) << child->objectName().toStdString();
        }
    }
}

TEST(PanelsTogether, FitIntoTwoRowsBelowTheMap) {
    const auto session = FilledSession();
    const auto width = [](std::initializer_list<const Panel *> row) {
        int total = 0;
        for (const Panel *panel : row)
            total += panel->minimumSizeHint().width();
        return total;
    };
    const TargetPanel target(*session, nullptr);
    const AirfieldPanel airfield(*session, nullptr);
    const FrontlinePanel frontline(*session, nullptr);
    const RailwayPanel railway(*session, nullptr);
    const WaypointPanel road(WaypointPanel::Kind::Road, *session, nullptr);
    const WaypointPanel rail(WaypointPanel::Kind::Rail, *session, nullptr);
    EXPECT_LE(width({&target, &airfield}), 870);
    EXPECT_LE(width({&frontline, &railway, &road, &rail}), 870);
    EXPECT_LE(target.minimumSizeHint().height() + railway.minimumSizeHint().height(), 320);
}

TEST(PanelsTogether, ACampaignThatHoldsNothingYetIsShownAsZeros) {
    const auto session = std::make_unique<Session>();
    const auto before = std::make_unique<Campaign>(session->campaign);
    const TargetPanel target(*session, nullptr);
    const RailwayPanel railway(*session, nullptr);
    EXPECT_EQ(ShownIn(target, "txt_tar_xm"), "0");
    EXPECT_EQ(ShownIn(railway, "txt_rail_ym2"), "0");
    EXPECT_TRUE(session->campaign == *before);
}

}  // namespace
}  // namespace vtr
