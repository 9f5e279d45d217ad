#pragma once

#include <span>

#include "Campaign.h"
#include "LoadListener.h"

namespace vtr {

constexpr std::size_t waypointSize = 12;

/// Fills a waypoint from its record of the file, which lies at place, and tells whether its path goes on. A
/// continuation byte other than 0 and 1 lets the path go on and leaves the flag as it is. Throws an overflow
/// Error for a position that leaves 16 bits.
bool DecodeWaypoint(std::span<const std::uint8_t, waypointSize> record, Waypoint &waypoint,
                    const Place &place = {});

/// Fill RoadWaypointTable or RailWaypointTable from a whole file's bytes; path is for messages.
void DecodeRoadWaypoints(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                         LoadListener &listener);
void DecodeRailWaypoints(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                         LoadListener &listener);
/// Fill RoadWaypointTable or RailWaypointTable from the file at path; an empty path leaves it alone. The
/// editor never writes these files. Throw file-access and overflow Errors.
void ReadRoadWaypoints(const std::string &path, Campaign &campaign, LoadListener &listener);
void ReadRailWaypoints(const std::string &path, Campaign &campaign, LoadListener &listener);

}  // namespace vtr
