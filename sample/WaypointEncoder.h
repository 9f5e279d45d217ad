#pragma once

#include <span>

#include "Bytes.h"
#include "Campaign.h"

namespace vtr {

/// An interdiction waypoint file of paths of at least one waypoint; the editor only reads such files.
Bytes EncodeWaypoints(std::span<const WaypointPath> paths);

}  // namespace vtr
