#pragma once

#include <cstddef>

namespace vtr {

/// The layer that is being edited, in the order of the edit menu.
enum class EditMode { Target, Frontline, Railway, RoadInt, RailInt };
constexpr std::size_t editModeTotal = 5;

}  // namespace vtr
