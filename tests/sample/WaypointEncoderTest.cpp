#include "SharedSample.h"
#include "WaypointEncoder.h"

namespace vtr {
namespace {

TEST(WaypointEncoder, MarksTheLastWaypointOfAPathByAClearContinuationByte) {
    std::array<WaypointPath, 2> paths;
    paths[0].count = 2;
    paths[0].waypoints[0] = {160, 1760, 0};  // stored as zero in both upper halves
    paths[0].waypoints[1] = {161, 1761, flagSet};
    paths[1].count = 1;
    paths[1].waypoints[0] = {0, 0, flagSet};
    const Bytes bytes = EncodeWaypoints(paths);
    ASSERT_EQ(bytes.size(), 4U + 3 * 12);
    EXPECT_EQ(GetUint16(bytes, 0), 2);
    EXPECT_EQ(bytes[4 + 10], 1);
    EXPECT_EQ(bytes[16 + 10], 0);
    EXPECT_EQ(bytes[28 + 10], 0);
    // Upper halves without the two bits that belong to the fine offset.
    EXPECT_EQ(GetUint16(bytes, 4 + 2) & 0xFFFC, 0);
    EXPECT_EQ(GetUint16(bytes, 4 + 6) & 0xFFFC, 0);
    EXPECT_EQ(GetUint16(bytes, 16 + 2) & 0xFFFC, 4);
    EXPECT_EQ(GetUint16(bytes, 16 + 6) & 0xFFFC, 4);
    EXPECT_EQ(GetUint16(bytes, 28 + 2) & 0xFFFC, 65536 - 640);
    EXPECT_EQ(GetUint16(bytes, 28 + 6) & 0xFFFC, 65536 - 7040);
}

TEST(WaypointEncoder, WritesTheSamplePathsInOrderOneBehindTheOther) {
    std::size_t waypoints = 0;
    for (const WaypointPath &path : Sample().RoadWaypointTable)
        waypoints += static_cast<std::size_t>(path.count);
    EXPECT_EQ(SampleBytes("ROADWPT.DAT").size(), 4 + 12 * waypoints);
}

}  // namespace
}  // namespace vtr
