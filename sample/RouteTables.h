#pragma once

#include "Campaign.h"
#include "Theatre.h"

namespace vtr {

/// Fills the railway lines and their fine offsets: the railways as short straight lines, one route after the
/// other. Each line begins where the one before it ends.
void FillRailways(const Theatre &theatre, Campaign &campaign);

/// Fills the interdiction paths with stretches of the roads and railways.
void FillInterdictionPaths(const Theatre &theatre, Campaign &campaign);

}  // namespace vtr
