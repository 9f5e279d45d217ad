#pragma once

#include "Campaign.h"
#include "Theatre.h"

namespace vtr {

/// Fills the targets, their fine offsets, their names and the airfields: worthwhile targets in the cities and
/// all airfields, in the order that the grid needs.
void FillTargets(const Theatre &theatre, Campaign &campaign);

}  // namespace vtr
