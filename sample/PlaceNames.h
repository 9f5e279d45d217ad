#pragma once

#include <string>

#include "Theatre.h"

namespace vtr {

/// The name of invented place number index (from 0) of a country, in the game's single-byte characters. No
/// two names are the same.
std::string PlaceName(Country country, int index);

}  // namespace vtr
