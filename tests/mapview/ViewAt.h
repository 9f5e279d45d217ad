#pragma once

#include <cstdint>

#include "MapView.h"

namespace vtr {

/// The viewport at 100 times zoom percent, with that map pixel in its top left corner.
inline MapView ViewAt(int zoom, int left, int top) {
    MapView view;
    view.MapZoom = static_cast<std::int16_t>(zoom);
    view.h_scroll.Value = static_cast<std::int16_t>(left);
    view.v_scroll.Value = static_cast<std::int16_t>(top);
    return view;
}

}  // namespace vtr
