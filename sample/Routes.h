#pragma once

#include "Theatre.h"

namespace vtr {

/// Joins neighbouring cities by roads. A road uses earlier ones where it can.
void BuildRoads(Theatre &theatre);
/// Joins neighbouring cities by railways, which avoid steep land more than roads do.
void BuildRails(Theatre &theatre);

}  // namespace vtr
