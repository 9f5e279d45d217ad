#pragma once

#include "Campaign.h"
#include "Theatre.h"

namespace vtr {

/// Fills the airfields: airfield i lies at site sites[i].
void FillAirfields(const Theatre &theatre, const std::vector<std::size_t> &sites, Campaign &campaign);

}  // namespace vtr
