#include <gtest/gtest.h>

#include <memory>

#include "ReaderTesting.h"
#include "TemporaryFolder.h"
#include "WaypointFile.h"

namespace vtr {
namespace {

using WaypointBytes = std::array<std::uint8_t, 12>;

// Fine parts and bytes without a meaning, a continuation byte of 1.
constexpr WaypointBytes waypointBytesByHand{9,    8,    0x12, 0xFF,   // 0: x, -238 quarter tiles
                                            7,    6,    0xA0, 0xE7,   // 4: y, -6240
                                            0xB1, 0xB2, 1,    0xB3};  // 10: continuation

WaypointBytes WithContinuation(std::uint8_t byte) {
    WaypointBytes record = waypointBytesByHand;
    record[10] = byte;
    return record;
}

/// A file whose waypoints are told apart by their rows, with the continuation bytes given in turn and then
/// again from the first.
Bytes FileOf(std::size_t waypoints, const std::vector<std::uint8_t> &continuations) {
    Bytes file{1, 2, 3, 4};
    for (std::size_t w = 0; w < waypoints; ++w) {
        WaypointBytes record = WithContinuation(continuations[w % continuations.size()]);
        record[2] = static_cast<std::uint8_t>(4 * (w % 64));
        record[3] = static_cast<std::uint8_t>(0xFE + w / 64 % 2);
        file.insert(file.end(), record.begin(), record.end());
    }
    return file;
}

/// The column of waypoint w of such a file.
int ColumnOf(std::size_t w) {
    return static_cast<int>(32 + 64 * (w / 64 % 2) + w % 64);
}

/// What a walk along the file by hand gives: of each path the number of its first waypoint and how many it
/// has.
struct Walk {
    std::vector<std::size_t> firsts;
    std::vector<std::size_t> counts;
    std::size_t end;
};

Walk WalkAlong(const Bytes &file, std::size_t paths) {
    Walk walk;
    std::size_t waypoint = 0;
    for (std::size_t i = 0; i < paths; ++i) {
        walk.firsts.push_back(waypoint);
        while (true) {
            const std::size_t flag = 4 + 12 * waypoint++ + 10;
            const std::size_t count = waypoint - walk.firsts.back();
            if (count == 12 || flag >= file.size() || file[flag] == 0) {
                walk.counts.push_back(count);
                break;
            }
        }
    }
    walk.end = 4 + 12 * waypoint;
    return walk;
}

class WaypointFile : public testing::Test {
  protected:
    const std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
    std::array<WaypointPath, roadPathTotal> &roads = campaign->RoadWaypointTable;
    std::array<WaypointPath, railPathTotal> &rails = campaign->RailWaypointTable;
    RecordingListener listener;

    void DecodeRoads(const Bytes &bytes) { DecodeRoadWaypoints(bytes, "ROADWPT.DAT", *campaign, listener); }
    void DecodeRails(const Bytes &bytes) { DecodeRailWaypoints(bytes, "RAILWPT.DAT", *campaign, listener); }
};

TEST_F(WaypointFile, ReadsARecordByteByByte) {
    Waypoint waypoint{.flag = 77};
    EXPECT_TRUE(DecodeWaypoint(waypointBytesByHand, waypoint));
    EXPECT_EQ(waypoint, (Waypoint{.x = 100, .y = 200, .flag = 0}));
}

TEST_F(WaypointFile, AContinuationOf0EndsThePathOf1GoesOnAndAnyOtherGoesOnAndLeavesTheFlag) {
    for (const std::uint8_t byte : std::array<std::uint8_t, 5>{0, 1, 2, 128, 255})
        for (const std::uint16_t before : std::array<std::uint16_t, 3>{0, 65535, 77}) {
            Waypoint waypoint{.flag = before};
            EXPECT_EQ(DecodeWaypoint(WithContinuation(byte), waypoint), byte != 0);
            EXPECT_EQ(waypoint.flag, byte == 0 ? 65535 : byte == 1 ? 0 : before) << int{byte};
        }
}

TEST_F(WaypointFile, ThePathsFollowEachOtherAtOnce) {
    // Paths of 1, 3 and 2 waypoints by turns.
    DecodeRails(FileOf(198, {0, 1, 1, 0, 1, 0}));
    std::size_t waypoint = 0;
    for (std::size_t i = 0; i < railPathTotal; ++i) {
        ASSERT_EQ(rails[i].count, i % 3 == 0 ? 1 : i % 3 == 1 ? 3 : 2) << i;
        for (std::size_t w = 0; w < static_cast<std::size_t>(rails[i].count); ++w) {
            const bool last = w + 1 == static_cast<std::size_t>(rails[i].count);
            ASSERT_EQ(rails[i].waypoints[w].x, ColumnOf(waypoint)) << i;
            ASSERT_EQ(rails[i].waypoints[w].y, 200);
            ASSERT_EQ(rails[i].waypoints[w].flag, last ? 65535 : 0) << i;
            ++waypoint;
        }
    }
    EXPECT_EQ(waypoint, 198U);
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(WaypointFile, APathEndsAfterItsTwelfthWaypoint) {
    DecodeRoads(FileOf(297 * 12, {1}));
    for (std::size_t i = 0; i < roadPathTotal; ++i) {
        ASSERT_EQ(roads[i].count, 12);
        ASSERT_EQ(roads[i].waypoints[0].x, ColumnOf(12 * i));
        ASSERT_EQ(roads[i].waypoints[11].flag, 0);
    }
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(WaypointFile, AContinuationThatMeansNothingGoesOnWhateverTheTableHeld) {
    roads[0].waypoints[0].flag = 65535;
    roads[0].waypoints[1].flag = 77;
    DecodeRoads(FileOf(4 * 297, {2, 255, 1, 0}));
    EXPECT_EQ(roads[0].count, 4);
    EXPECT_EQ(roads[0].waypoints[0].flag, 65535);
    EXPECT_EQ(roads[0].waypoints[1].flag, 77);
    EXPECT_EQ(roads[0].waypoints[2].flag, 0);
    EXPECT_EQ(roads[0].waypoints[3].flag, 65535);
}

TEST_F(WaypointFile, CountsEveryPathAnewAndLeavesTheWaypointsBehindItsLastAsTheyWere) {
    DecodeRails(FileOf(99 * 12, {1}));
    const Waypoint third = rails[0].waypoints[2];
    DecodeRails(FileOf(99 * 2, {1, 0}));
    EXPECT_EQ(rails[0].count, 2);
    EXPECT_EQ(rails[0].waypoints[2], third);
}

TEST_F(WaypointFile, RoadsAndRailsFillTheirOwnTable) {
    DecodeRoads(FileOf(297, {0}));
    EXPECT_EQ(roads[296].count, 1);
    EXPECT_EQ(rails[0].count, 0);
    DecodeRails(FileOf(99, {0}));
    EXPECT_EQ(rails[98].count, 1);
}

TEST_F(WaypointFile, RaisesTheProgressBy8OverAllPaths) {
    DecodeRoads(FileOf(297 * 2, {1, 0}));
    EXPECT_EQ(listener.steps, std::vector<double>(297, 8.0 / 297));
    listener = {};
    DecodeRails(FileOf(99 * 2, {1, 0}));
    EXPECT_EQ(listener.steps, std::vector<double>(99, 8.0 / 99));
}

TEST_F(WaypointFile, CutAtAnyLengthReadsTheMissingBytesAsZeroAndIsReportedOnce) {
    const Bytes file = FileOf(99 * 4, {1, 1, 0, 9, 1, 0, 0, 0});
    for (std::size_t length = 0; length <= file.size(); ++length) {
        const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        const Walk walk = WalkAlong(cut, railPathTotal);
        listener = {};
        DecodeRails(cut);
        for (std::size_t i = 0; i < railPathTotal; ++i) {
            ASSERT_EQ(rails[i].count, static_cast<std::int16_t>(walk.counts[i])) << length << ", " << i;
            for (std::size_t w = 0; w < walk.counts[i]; ++w) {
                const std::size_t at = 4 + 12 * (walk.firsts[i] + w);
                const Waypoint &waypoint = rails[i].waypoints[w];
                if (at + 12 <= length) {
                    ASSERT_EQ(waypoint.x, ColumnOf(walk.firsts[i] + w));
                    ASSERT_EQ(waypoint.y, 200);
                } else if (at >= length) {
                    ASSERT_EQ(waypoint, (Waypoint{160, 1760, 65535}));
                }
            }
        }
        ASSERT_EQ(listener.steps.size(), railPathTotal);
        ASSERT_EQ(listener.shortFiles.size(), length < walk.end ? 1U : 0U) << length;
        for (const ShortFile &report : listener.shortFiles) {
            ASSERT_EQ(report.path, "RAILWPT.DAT");
            ASSERT_EQ(report.found, length);
            ASSERT_EQ(report.expected, walk.end);
        }
    }
}

TEST_F(WaypointFile, CutWithinARecordReadsItsMissingBytesAsZero) {
    Bytes file = FileOf(1, {1});
    file.resize(4 + 7);  // the upper byte of y is missing
    DecodeRails(file);
    EXPECT_EQ(rails[0].waypoints[0], (Waypoint{32, 1800, 65535}));  // 0x00A0 is 160 quarter tiles
    EXPECT_EQ(rails[0].count, 1);
}

TEST_F(WaypointFile, LongerThanItsPathsIsReadAsFarAsTheyGo) {
    DecodeRails(FileOf(1000, {0}));
    EXPECT_EQ(rails[98].waypoints[0].x, ColumnOf(98));
    EXPECT_TRUE(listener.shortFiles.empty());
}

TEST_F(WaypointFile, RandomDamageIsSurvived) {
    ExpectDamageToBeSurvived(FileOf(297 * 4, {1, 1, 0, 9, 1, 0, 0, 0}), [this](const Bytes &bytes) {
        DecodeRoads(bytes);
        for (const WaypointPath &path : roads)
            ASSERT_TRUE(path.count >= 1 && path.count <= 12);
    });
}

TEST_F(WaypointFile, APositionThatLeaves16BitsIsAnOverflowNamedByItsPlace) {
    Bytes file = FileOf(297 * 2, {1, 0});
    file[4 + 12 * 5 + 2] = 0xFF;  // x of the second waypoint of path 2: 32767
    file[4 + 12 * 5 + 3] = 0x7F;
    const Error road = ErrorThrownBy([&] { DecodeRoads(file); });
    EXPECT_EQ(road.Kind(), ErrorKind::Overflow);
    EXPECT_EQ(road.File(), "ROADWPT.DAT");
    EXPECT_EQ(road.PlaceText(), "offset 64, road path 2, waypoint 1");
    EXPECT_EQ(ErrorThrownBy([&] { DecodeRails(file); }).Item(), "rail path 2, waypoint 1");
}

TEST_F(WaypointFile, OnDiskIsRead) {
    const TemporaryFolder folder;
    const Bytes file = FileOf(297, {0});
    const std::string path = folder.Make("W.DAT", std::string(file.begin(), file.end()));
    ReadRoadWaypoints(path, *campaign, listener);
    ReadRailWaypoints(path, *campaign, listener);
    EXPECT_EQ(roads[296].waypoints[0].x, ColumnOf(296));
    EXPECT_EQ(rails[98].waypoints[0].x, ColumnOf(98));
}

TEST_F(WaypointFile, WithAnEmptyPathIsNotRead) {
    roads[0].count = 7;
    rails[0].count = 8;
    ReadRoadWaypoints("", *campaign, listener);
    ReadRailWaypoints("", *campaign, listener);
    EXPECT_EQ(roads[0].count, 7);
    EXPECT_EQ(rails[0].count, 8);
    EXPECT_TRUE(listener.steps.empty());
}

TEST_F(WaypointFile, ThatIsMissingIsAnError) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "none.dat";
    for (const auto read : {ReadRoadWaypoints, ReadRailWaypoints})
        EXPECT_EQ(ErrorThrownBy([&] { read(path, *campaign, listener); }).Kind(), ErrorKind::FileMissing);
}

}  // namespace
}  // namespace vtr
