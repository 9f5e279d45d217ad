#pragma once

#include <string>

#include "MapGrid.h"

namespace vtr {

/// A fine offset in metres for something at place, as text: any of those that the game's files can hold, and
/// for the same place and seed always the same.
std::string FineOffsetAt(Point place, std::uint32_t seed);

}  // namespace vtr
