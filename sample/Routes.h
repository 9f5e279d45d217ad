#pragma once

#include "Theatre.h"

namespace vtr {

/// Joins neighbouring cities by roads, which share what there is of earlier ones.
void BuildRoads(Theatre &theatre);
/// Joins neighbouring cities by railways, which shun steep land more than roads do.
void BuildRails(Theatre &theatre);

}  // namespace vtr
