#include <gtest/gtest.h>

#include "PanelTesting.h"
#include "WaypointPanel.h"

namespace vtr {
namespace {

struct Frame {
    WaypointPanel::Kind kind;
    std::string prefix;
    std::size_t paths;
};

class WaypointPanelTest : public ::testing::TestWithParam<Frame> {
  protected:
    WaypointPanelTest() { panel.setEnabled(true); }

    std::string Text(const char *name) { return ShownIn(panel, ("txt_" + GetParam().prefix + name).c_str()); }
    NumberField &UpDown(const char *name) {
        return Field(panel, ("upd_" + GetParam().prefix + name).c_str());
    }

    std::unique_ptr<Session> session = FilledSession();
    Campaign *campaign = &session->campaign;
    WaypointPanel panel{GetParam().kind, *session, nullptr};
};

TEST_P(WaypointPanelTest, ShowsEveryWaypointAsTheTableHoldsIt) {
    for (std::size_t path = 0; path < GetParam().paths; ++path) {
        for (std::size_t number = 0; number < 12; ++number) {
            ASSERT_TRUE(UpDown("num").SetNumber(static_cast<int>(path)));
            ASSERT_TRUE(UpDown("wptnum").SetNumber(static_cast<int>(number)));
            const Waypoint &waypoint = GetParam().kind == WaypointPanel::Kind::Road
                                           ? campaign->RoadWaypointTable[path].waypoints[number]
                                           : campaign->RailWaypointTable[path].waypoints[number];
            EXPECT_EQ(Text("x"), std::to_string(waypoint.x));
            EXPECT_EQ(Text("y"), std::to_string(waypoint.y));
            EXPECT_EQ(Text("xm"), "0");
            EXPECT_EQ(Text("ym"), "0");
        }
    }
    EXPECT_FALSE(UpDown("num").SetNumber(static_cast<int>(GetParam().paths)));
    EXPECT_FALSE(UpDown("wptnum").SetNumber(12));
}

TEST_P(WaypointPanelTest, NumbersAreHeldInTheirRangeAndNeverWritten) {
    const auto before = std::make_unique<Campaign>(*campaign);
    const QSignalSpy changed(&panel, &Panel::Changed);
    const std::pair<const char *, const char *> maxima[] = {
        {"x", "639"}, {"y", "319"}, {"xm", "4100"}, {"ym", "4100"}};
    for (const auto &[name, maximum] : maxima) {
        const std::string text = "txt_" + GetParam().prefix + name;
        TypeInto(panel, text.c_str(), "99999");
        EXPECT_EQ(Text(name), maximum);
        TypeInto(panel, text.c_str(), "-3");
        EXPECT_EQ(Text(name), "0");
        TypeInto(panel, text.c_str(), "17");
        EXPECT_EQ(Text(name), "17");
    }
    EXPECT_TRUE(*campaign == *before);
    EXPECT_EQ(changed.size(), 0);
    UpDown("wptnum").SetNumber(1);
    UpDown("wptnum").SetNumber(0);
    EXPECT_NE(Text("xm"), "17") << "another waypoint shows what the table holds";
}

TEST_P(WaypointPanelTest, SaysThatNothingIsStored) {
    EXPECT_EQ(panel.toolTip(),
              QStringLiteral("The game's interdiction paths are only shown: nothing entered here is stored"));
    EXPECT_EQ(panel.objectName().toStdString(), GetParam().prefix == "roi_" ? "fra_roadint" : "fra_railint");
}

INSTANTIATE_TEST_SUITE_P(BothFrames, WaypointPanelTest,
                         ::testing::Values(Frame{WaypointPanel::Kind::Road, "roi_", 297},
                                           Frame{WaypointPanel::Kind::Rail, "rai_", 99}),
                         [](const auto &frame) {
                             return frame.param.kind == WaypointPanel::Kind::Road ? "Road" : "Rail";
                         });

}  // namespace
}  // namespace vtr
