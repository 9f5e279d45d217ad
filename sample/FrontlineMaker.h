#pragma once

#include "Campaign.h"
#include "Theatre.h"

namespace vtr {

/// Fills the frontlines: from slot to slot the front moves from a beachhead in the west to the east.
void FillFrontlines(const Theatre &theatre, Campaign &campaign);

}  // namespace vtr
