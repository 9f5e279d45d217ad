#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "Campaign.h"

namespace vtr {

/// The message when the targets cannot be reordered.
constexpr std::string_view reorderFailedMessage = "GRIDDATA reordering failed somewhere.  BUGGER!";

/// The new index of each target, by its old one.
using NewTargetIndices = std::array<std::size_t, targetTotal>;

/// Sorts the targets so that a grid can be built from them: by column, with 0 to 3 as one, then by row, then
/// in their old order. When a target lies outside columns 0 to 642 or rows 0 to 319, changes and returns
/// nothing. In both cases calls addProgress 640 times, once for each column of the map, with a step of a bar
/// of 0 to 100.
std::optional<NewTargetIndices> ReorderTargets(Campaign &campaign,
                                               const std::function<void(double)> &addProgress);

}  // namespace vtr
