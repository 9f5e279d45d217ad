#pragma once

#include "Campaign.h"
#include "Theatre.h"

namespace vtr {

/// Fills the railway lines and their fine offsets: the railways in short straight lines, one route after the
/// other, each line beginning where the one before it ends.
void FillRailways(const Theatre &theatre, Campaign &campaign);

/// Fills the interdiction paths, stretches of the roads and of the railways.
void FillInterdictionPaths(const Theatre &theatre, Campaign &campaign);

}  // namespace vtr
