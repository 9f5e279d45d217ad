#include "WaypointEncoder.h"

#include "FineOffsetMaker.h"
#include "GamePosition.h"

namespace vtr {

namespace {

constexpr std::size_t recordSize = 12;
constexpr std::size_t xOffset = 0;
constexpr std::size_t yOffset = 4;
constexpr std::size_t continuationOffset = 10;

void AppendWaypoint(const Waypoint &waypoint, bool goesOn, Bytes &bytes) {
    std::array<std::uint8_t, recordSize> record{};
    const Point place{waypoint.x, waypoint.y};
    EncodeGamePosition(Axis::X, waypoint.x, FineOffsetAt(place, 811),
                       std::span(record).subspan<xOffset, gamePositionSize>());
    EncodeGamePosition(Axis::Y, waypoint.y, FineOffsetAt(place, 821),
                       std::span(record).subspan<yOffset, gamePositionSize>());
    record[continuationOffset] = goesOn ? 1 : 0;
    bytes.insert(bytes.end(), record.begin(), record.end());
}

}  // namespace

Bytes EncodeWaypoints(std::span<const WaypointPath> paths) {
    Bytes bytes(4);
    PutUint32(bytes, 0, static_cast<std::uint32_t>(paths.size()));
    for (const WaypointPath &path : paths)
        for (int i = 0; i < path.count; ++i)
            AppendWaypoint(path.waypoints[static_cast<std::size_t>(i)], i + 1 < path.count, bytes);
    return bytes;
}

}  // namespace vtr
