#pragma once

#include <optional>

#include "MapView.h"

namespace vtr {

/// What marks the selected item on the viewport, in its pixels.
struct SelectionMark {
    /// Four corners around the item that leave its X and its ring free. All these pixels belong to them.
    struct Corners {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        int arm = 0;  ///< how far each corner reaches along its sides

        bool operator==(const Corners &) const = default;
    };
    /// An arrow at the edge that points to an item out of view.
    struct Arrow {
        double tipX = 0;
        double tipY = 0;
        double directionX = 0;  ///< of length 1, from the middle of the viewport to the item
        double directionY = 0;

        bool operator==(const Arrow &) const = default;
    };

    std::optional<Corners> corners;
    std::optional<Arrow> arrow;

    bool operator==(const SelectionMark &) const = default;
};

/// The mark of an item on map pixel (x, y): corners or an arrow, but neither before the first project load
/// and for an item beside the map. At least one corner is always in view.
SelectionMark MarkOf(const MapView &view, int x, int y);

}  // namespace vtr
