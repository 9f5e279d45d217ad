#pragma once

#include "Theatre.h"

namespace vtr {

constexpr int citySites = 64;

/// Founds 64 cities where people would settle: on low land, at rivers and at the coast.
void FoundCities(Theatre &theatre);
/// Finds 162 places for airfields on flat land around the cities.
void PlaceAirfields(Theatre &theatre);

}  // namespace vtr
