#pragma once

#include <string>

#include "Session.h"

namespace vtr {

/// What the user is told of one pixel of the viewport.
struct UnderPointer {
    /// Each item on a line of its own, then the terrain tile, below them the map point in kilometres (UTF-8):
    /// "Target 50 Wexlinmere Bridge, 8 objects, 1697 m / 446 m, on 09 Field4\n1279.2 km / 397.7 km". Of many
    /// items it names the first and tells how many more there are. Empty beside the map.
    std::string text;
    bool clickSelects = false;  ///< a plain click there selects a target

    bool operator==(const UnderPointer &) const = default;
};

/// What lies under pixel (x, y) of the viewport. Nothing before the first project load.
UnderPointer WhatIsUnder(const Session &session, int x, int y);

}  // namespace vtr
