#include "WaypointFile.h"

#include "ByteReader.h"
#include "GamePosition.h"
#include "WholeFile.h"

namespace vtr {

namespace {

/// Four bytes that the editor does not look at.
constexpr std::size_t headerSize = 4;

enum WaypointOffset : std::size_t {
    waypointX = 0,
    waypointY = 4,
    unused8 = 8,
    continuation = 10,
    unused11 = 11,
    waypointEnd = 12
};
static_assert(waypointY + gamePositionSize == unused8);
static_assert(waypointEnd == waypointSize);

/// Of a file whose paths are all as long as can be.
constexpr std::size_t MostBytes(std::size_t paths) {
    return headerSize + paths * waypointTotal * waypointSize;
}

void DecodePath(ByteReader &reader, const std::string &path, const std::string &item,
                WaypointPath &waypoints) {
    waypoints.count = 0;
    bool goesOn = true;
    for (std::size_t w = 0; goesOn && w < waypointTotal; ++w) {
        const Place place{.file = path,
                          .offset = static_cast<std::int64_t>(reader.Position()),
                          .item = item,
                          .index = static_cast<int>(w)};
        goesOn = DecodeWaypoint(reader.Take<waypointSize>(), waypoints.waypoints[w], place);
        ++waypoints.count;
    }
}

/// kind is what messages call one of the paths.
template <std::size_t Paths>
void DecodePaths(ConstByteSpan bytes, const std::string &path, const std::string &kind,
                 std::array<WaypointPath, Paths> &table, LoadListener &listener) {
    ByteReader reader(bytes);
    reader.Skip(headerSize);
    for (std::size_t i = 0; i < Paths; ++i) {
        DecodePath(reader, path, kind + " " + std::to_string(i) + ", waypoint", table[i]);
        listener.AddProgress(8.0 / Paths);
    }
    if (reader.RanPastEnd())
        listener.FoundShortFile({path, bytes.size(), reader.Position()});
}

}  // namespace

bool DecodeWaypoint(std::span<const std::uint8_t, waypointSize> record, Waypoint &waypoint,
                    const Place &place) {
    waypoint.x =
        PixelOfGamePosition(Axis::X, record.subspan<waypointX, gamePositionSize>(), place.Plus(waypointX));
    waypoint.y =
        PixelOfGamePosition(Axis::Y, record.subspan<waypointY, gamePositionSize>(), place.Plus(waypointY));
    if (record[continuation] <= 1)
        waypoint.flag = record[continuation] == 0 ? flagSet : std::uint16_t{0};
    return record[continuation] != 0;
}

void DecodeRoadWaypoints(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                         LoadListener &listener) {
    DecodePaths(bytes, path, "road path", campaign.RoadWaypointTable, listener);
}

void DecodeRailWaypoints(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                         LoadListener &listener) {
    DecodePaths(bytes, path, "rail path", campaign.RailWaypointTable, listener);
}

void ReadRoadWaypoints(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeRoadWaypoints(ReadStartOfFile(path, MostBytes(campaign.RoadWaypointTable.size())), path,
                            campaign, listener);
}

void ReadRailWaypoints(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeRailWaypoints(ReadStartOfFile(path, MostBytes(campaign.RailWaypointTable.size())), path,
                            campaign, listener);
}

}  // namespace vtr
