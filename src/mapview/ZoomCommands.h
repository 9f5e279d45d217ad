#pragma once

#include <cstdint>

#include "MapView.h"

namespace vtr {

/// A scroll bar as the zoom commands see it. It keeps its value between 0 and the maximum: a maximum below
/// the value lowers the value. Every change of the value calls HScrollChanged or VScrollChanged at once.
class ScrollBarControl {
  public:
    virtual ~ScrollBarControl() = default;
    virtual void SetLargeChange(std::int16_t change) = 0;
    virtual void SetMaximum(std::int16_t maximum) = 0;
    virtual void SetValue(std::int16_t value) = 0;
};

struct ScrollBars {
    ScrollBarControl &h_scroll;
    ScrollBarControl &v_scroll;
};

// The commands of the zoom menu and that of the mouse wheel. Each puts the whole new state into view,
// zoomMenu and shp_area included. Then the window shows it and redraws the map once. They throw overflow
// Errors as in Arithmetic.h.

/// "&100%": the whole map. Every project load ends with it.
void ZoomTo100(MapView &view, ScrollBars bars);
/// "&200%": the point in the middle of the viewport stays there.
void ZoomTo200(MapView &view, ScrollBars bars);
void ZoomTo400(MapView &view, ScrollBars bars);
/// "Zoom &In": 100% more. At 10000% the menu entry is disabled.
void ZoomIn(MapView &view, ScrollBars bars);
/// "Zoom &Out": 100% less. At 100% the menu entry is disabled.
void ZoomOut(MapView &view, ScrollBars bars);
/// Zooms in (steps above 0) or out that many times, as far as the menu's entries are enabled. The map pixel
/// under the viewport's pixel (x, y) stays there as far as the map reaches. Returns whether the zoom changed.
bool ZoomAt(MapView &view, ScrollBars bars, int steps, int x, int y);

/// The change handlers of the two scroll bars. They move the rectangle over the overview, and the centre too
/// unless a zoom command is running. They do not redraw the map.
void HScrollChanged(MapView &view, std::int16_t value);
void VScrollChanged(MapView &view, std::int16_t value);

}  // namespace vtr
