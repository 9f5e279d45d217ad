#pragma once

#include <cstdint>

#include "MapGrid.h"

namespace vtr {

/// A fine offset in metres for something at place, one that the game's files can hold. The same place and
/// seed always give the same offset.
double FineOffsetAt(Point place, std::uint32_t seed);

}  // namespace vtr
