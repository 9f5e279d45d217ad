#include <algorithm>

#include "FrontlineMaker.h"
#include "SharedSample.h"

namespace vtr {
namespace {

double MeanX(const Frontline &front) {
    double sum = 0;
    for (int i = 0; i < front.point_count(); ++i)
        sum += front.points[static_cast<std::size_t>(i)].x;
    return sum / front.point_count();
}

TEST(FrontlineMaker, DrawsFrontsOf8To29PointsOnLand) {
    EXPECT_EQ(Sample().FrontlineTable.front().point_count(), 8);
    EXPECT_EQ(Sample().FrontlineTable.back().point_count(), 29);
    for (const Frontline &front : Sample().FrontlineTable)
        for (int i = 0; i < front.point_count(); ++i) {
            const FrontlinePoint &point = front.points[static_cast<std::size_t>(i)];
            EXPECT_TRUE(IsLandTile(point.x, point.y)) << point.x << ", " << point.y;
        }
}

TEST(FrontlineMaker, MovesTheFrontEastFromSlotToSlot) {
    const auto &fronts = Sample().FrontlineTable;
    for (std::size_t slot = 1; slot < fronts.size(); ++slot)
        EXPECT_FALSE(fronts[slot] == fronts[slot - 1]) << slot;
    for (std::size_t slot = 5; slot < fronts.size(); ++slot)
        EXPECT_GT(MeanX(fronts[slot]), MeanX(fronts[slot - 1])) << slot;
}

TEST(FrontlineMaker, ShowsSomePointsOnTheBriefingMapAndNotOthers) {
    for (const Frontline &front : Sample().FrontlineTable) {
        const auto points = std::span(front.points).first(static_cast<std::size_t>(front.point_count()));
        const auto shown =
            std::ranges::count_if(points, [](const FrontlinePoint &point) { return point.on_map == 65535; });
        EXPECT_GT(shown, 0);
        EXPECT_LT(shown, std::ssize(points));
    }
}

}  // namespace
}  // namespace vtr
