#pragma once

#include <cstdint>

#include "MapGrid.h"

namespace vtr {

/// A fine offset in metres for something at place: any of those that the game's files can hold, and for the
/// same place and seed always the same.
double FineOffsetAt(Point place, std::uint32_t seed);

}  // namespace vtr
