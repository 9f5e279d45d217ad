#pragma once

namespace vtr {

/// The items that the panels show, counted from 0.
struct Selection {
    struct PathWaypoint {
        int path = 0;
        int waypoint = 0;

        bool operator==(const PathWaypoint &) const = default;
    };

    int target = 0;
    int frontline = 0;
    int frontlinePoint = 0;
    int railwayLine = 0;
    PathWaypoint road;
    PathWaypoint rail;

    bool operator==(const Selection &) const = default;
};

}  // namespace vtr
