#pragma once

#include <optional>
#include <vector>

#include "Campaign.h"
#include "MapDisplay.h"
#include "MapView.h"

namespace vtr {

/// What lies under one pixel of the viewport. All numbers count from 0.
struct ItemsUnderPixel {
    /// A frontline or a path that passes there, and those of its points that lie on this very map pixel.
    struct Course {
        int number = 0;
        std::vector<int> points;

        bool operator==(const Course &) const = default;
    };

    std::vector<int> targets;  ///< those that a click there selects, the lowest first
    std::optional<Course> frontline;
    std::optional<int> railwayLine;
    std::optional<Course> roadPath;
    std::optional<Course> railPath;

    bool operator==(const ItemsUnderPixel &) const = default;
};

/// What lies under pixel (x, y) of the viewport. Targets lie on its map pixel, whether their layer is shown
/// or not, as a click selects them. Of the lines and paths that the map shows it is the nearest within two
/// pixels from where it is drawn; of several as near the lowest. The view must have a zoom. Throws an index
/// Error when display selects something outside a table.
ItemsUnderPixel ItemsUnder(const Campaign &campaign, const MapView &view, const MapDisplay &display, int x,
                           int y);

}  // namespace vtr
