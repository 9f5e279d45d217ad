#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "ZoomCommands.h"

namespace vtr {

/// A scroll bar that behaves like the window's: it keeps its value between 0 and the maximum and reports
/// every change at once.
class FakeScrollBar : public ScrollBarControl {
  public:
    using Handler = void (*)(MapView &view, std::int16_t value);
    FakeScrollBar(MapView &view, Handler changed, std::string name, std::vector<std::string> &calls)
        : view_(view), changed_(changed), name_(std::move(name)), calls_(calls) {}

    void SetLargeChange(std::int16_t change) override {
        Record("LargeChange", change);
        largeChange = change;
    }
    void SetMaximum(std::int16_t newMaximum) override {
        Record("Max", newMaximum);
        maximum = newMaximum;
        MoveTo(value);
    }
    void SetValue(std::int16_t newValue) override {
        Record("Value", newValue);
        MoveTo(newValue);
    }

    std::int16_t value = 0;
    std::int16_t maximum = 0;
    std::int16_t largeChange = 1;

  private:
    void Record(const std::string &what, std::int16_t number) {
        calls_.push_back(name_ + "." + what + " := " + std::to_string(number));
    }
    void MoveTo(std::int16_t wanted) {
        const std::int16_t held = std::clamp<std::int16_t>(wanted, 0, maximum);
        if (held == value)
            return;
        value = held;
        changed_(view_, value);
    }

    MapView &view_;
    Handler changed_;
    std::string name_;
    std::vector<std::string> &calls_;
};

/// A view with its two scroll bars and a record of what the zoom commands did to them.
struct ScrolledView {
    MapView view;
    std::vector<std::string> calls;
    FakeScrollBar horizontal{view, HScrollChanged, "h_scroll", calls};
    FakeScrollBar vertical{view, VScrollChanged, "v_scroll", calls};

    ScrolledView() = default;
    ScrolledView(const ScrolledView &) = delete;
    ScrolledView &operator=(const ScrolledView &) = delete;

    ScrollBars Bars() { return {horizontal, vertical}; }
    void LoadProject() { ZoomTo100(view, Bars()); }
    /// Reaches any factor with the user's commands.
    void ZoomTo(int factor) {
        ZoomTo100(view, Bars());
        while (view.MapZoom < factor)
            ZoomIn(view, Bars());
    }
};

}  // namespace vtr
