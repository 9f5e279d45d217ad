#include "Theatre.h"

#include "Landscape.h"
#include "Routes.h"
#include "Settlements.h"

namespace vtr {

Theatre MakeTheatre() {
    Theatre theatre;
    ShapeLand(theatre);
    RunRivers(theatre);
    DrawBorders(theatre);
    GrowWoods(theatre);
    FoundCities(theatre);
    PlaceAirfields(theatre);
    BuildRoads(theatre);
    BuildRails(theatre);
    return theatre;
}

}  // namespace vtr
