#pragma once

#include <array>
#include <vector>

#include "Campaign.h"

namespace vtr {

/// The reordering step by step, without a thought for time: what the tests hold the editor's own against, and
/// what the benchmarks measure it by. The old index of each target in its new order; fewer than 302 when some
/// were never met.
std::vector<std::size_t> PlainSweep(const std::array<TargetRecord, targetTotal> &targets);

}  // namespace vtr
