#pragma once

#include <random>

#include "Campaign.h"

namespace vtr {

/// Fills the targets, their fine offsets and names, and the airfields with values that are all allowed and
/// that the game's files can hold.
void FillWithRandomTables(Campaign &campaign, std::mt19937 &random);

}  // namespace vtr
