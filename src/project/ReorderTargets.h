#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "Campaign.h"

namespace vtr {

/// What the user is told when the targets cannot be reordered.
constexpr std::string_view reorderFailedMessage = "GRIDDATA reordering failed somewhere.  BUGGER!";

/// The new index of each target, by its old one.
using NewTargetIndices = std::array<std::size_t, targetTotal>;

/// Sorts the targets so that a grid can be built of them: by column with 0 to 3 as one, then by row, then as
/// they stood. Their fine offsets go with them. Nothing changes and nothing is returned when a target lies
/// outside columns 0 to 642 or rows 0 to 319. Calls addProgress with the step of a bar of 0 to 100, once for
/// each of the map's 640 columns, either way.
std::optional<NewTargetIndices> ReorderTargets(Campaign &campaign,
                                               const std::function<void(double)> &addProgress);

}  // namespace vtr
