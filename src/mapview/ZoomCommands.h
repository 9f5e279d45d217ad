#pragma once

#include <cstdint>

#include "MapView.h"

namespace vtr {

/// What the zoom commands ask of a scroll bar (Min 0). It behaves as scroll bars do: a value is held within
/// 0 to the maximum, lowering the maximum below the value moves the value down, and every change of the value
/// calls HScrollChanged or VScrollChanged at once.
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

// The commands of the zoom menu. Each leaves the whole new state in view, zoomMenu and shp_area included; the
// window shows it and then redraws the map once. Overflow Errors as in Arithmetic.h.

/// "&100%", also the end of every project load: the whole map.
void ZoomTo100(MapView &view, ScrollBars bars);
/// "&200%": the point in the middle of the viewport stays there.
void ZoomTo200(MapView &view, ScrollBars bars);
/// "&400%"
void ZoomTo400(MapView &view, ScrollBars bars);
/// "Zoom &In": one step of 100%; the menu ends it at 10000%.
void ZoomIn(MapView &view, ScrollBars bars);
/// "Zoom &Out": one step of 100% back; the menu ends it at 100%.
void ZoomOut(MapView &view, ScrollBars bars);

/// The change handlers of the two scroll bars: the rectangle over the overview follows, and the centre too
/// unless a zoom command is at work. The map itself waits for the next redraw.
void HScrollChanged(MapView &view, std::int16_t value);
void VScrollChanged(MapView &view, std::int16_t value);

}  // namespace vtr
