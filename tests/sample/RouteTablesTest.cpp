#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <span>

#include "RouteTables.h"
#include "SharedSample.h"

namespace vtr {
namespace {

using LineEnd = std::pair<int, int>;

std::span<const RailwayLine> UsedLines() {
    return std::span(Sample().RailwayTable).first(static_cast<std::size_t>(Sample().RailwayLineCount));
}

// The railway nets that hang together: the number of lines of each.
std::vector<int> NetSizes() {
    std::map<LineEnd, LineEnd> leaders;
    const auto leaderOf = [&leaders](LineEnd end) {
        leaders.try_emplace(end, end);
        while (leaders[end] != end)
            end = leaders[end];
        return end;
    };
    for (const RailwayLine &line : UsedLines())
        leaders[leaderOf({line.x1, line.y1})] = leaderOf({line.x2, line.y2});
    std::map<LineEnd, int> lines;
    for (const RailwayLine &line : UsedLines())
        ++lines[leaderOf({line.x1, line.y1})];
    std::vector<int> sizes;
    for (const auto &[leader, count] : lines)
        sizes.push_back(count);
    std::ranges::sort(sizes);
    return sizes;
}

TEST(RouteTables, UsesAbout850RailwayLinesAndLeavesTheRestUnused) {
    const int count = Sample().RailwayLineCount;
    EXPECT_GE(count, 840);
    EXPECT_LE(count, 860);
    for (std::size_t i = 0; i < railwayLineTotal; ++i)
        EXPECT_EQ(Sample().RailwayTable[i].IsUnused(), i >= static_cast<std::size_t>(count)) << i;
}

TEST(RouteTables, LaysRailwayLinesOneAfterTheOther) {
    int breaks = 0;
    const auto lines = UsedLines();
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i].x1 != lines[i - 1].x2 || lines[i].y1 != lines[i - 1].y2) {
            ++breaks;
            continue;
        }
        EXPECT_EQ(Sample().RailwayTable[i].fineOffsets[0], Sample().RailwayTable[i - 1].fineOffsets[1]) << i;
        EXPECT_EQ(Sample().RailwayTable[i].fineOffsets[2], Sample().RailwayTable[i - 1].fineOffsets[3]) << i;
    }
    EXPECT_LT(breaks, 40);
}

TEST(RouteTables, JoinsTheRailwaysOfEachLandToOneNet) {
    // The western island, the island in the north-east and the continent; one island has a single city.
    const std::vector<int> sizes = NetSizes();
    EXPECT_EQ(sizes.size(), 3U);
    EXPECT_GT(sizes.back(), 500);
}

TEST(RouteTables, LaysRailwayLinesOfSomeLengthOnLand) {
    for (const RailwayLine &line : UsedLines()) {
        EXPECT_TRUE(line.x1 != line.x2 || line.y1 != line.y2);
        EXPECT_LE(std::abs(line.x1 - line.x2) + std::abs(line.y1 - line.y2), 25);
        EXPECT_TRUE(IsLandTile(line.x1, line.y1));
        EXPECT_TRUE(IsLandTile(line.x2, line.y2));
    }
}

void ExpectPathsOnLand(std::span<const WaypointPath> paths) {
    std::array<int, waypointTotal + 1> pathsOfLength{};
    for (const WaypointPath &path : paths) {
        ASSERT_GE(path.count, 2);
        ASSERT_LE(path.count, 12);
        ++pathsOfLength[static_cast<std::size_t>(path.count)];
        for (int i = 0; i < path.count; ++i) {
            const Waypoint &waypoint = path.waypoints[static_cast<std::size_t>(i)];
            EXPECT_TRUE(IsLandTile(waypoint.x, waypoint.y));
            EXPECT_EQ(waypoint.flag, i == path.count - 1 ? 65535 : 0);
        }
        for (std::size_t i = static_cast<std::size_t>(path.count); i < waypointTotal; ++i)
            EXPECT_EQ(path.waypoints[i], Waypoint{});
    }
    EXPECT_GT(pathsOfLength[2], 0);
    EXPECT_GT(pathsOfLength[12], 0);
}

TEST(RouteTables, RunsInterdictionPathsOfTwoToTwelveWaypointsOverLand) {
    ExpectPathsOnLand(Sample().RoadWaypointTable);
    ExpectPathsOnLand(Sample().RailWaypointTable);
}

TEST(RouteTables, RunsRoadInterdictionPathsAlongRoads) {
    // Roads, the tiles in which roads cross water, cities and coasts; nothing of open land.
    constexpr std::array<int, 7> openLand{1, 28, 27, 31, 30, 22, 25};
    for (const WaypointPath &path : Sample().RoadWaypointTable)
        for (int i = 0; i < path.count; ++i) {
            const Waypoint &waypoint = path.waypoints[static_cast<std::size_t>(i)];
            EXPECT_THAT(openLand, testing::Not(testing::Contains(TileTypeAt(waypoint.x, waypoint.y))));
        }
}

}  // namespace
}  // namespace vtr
