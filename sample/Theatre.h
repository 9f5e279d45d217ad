#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "MapGrid.h"

namespace vtr {

/// The codes that the airfield file stores; 5 is not used.
enum class Country : std::uint8_t {
    Britain = 0,
    Germany = 1,
    France = 2,
    Belgium = 3,
    Holland = 4,
    Bohemia = 6
};
constexpr std::array<Country, 6> countries{Country::Britain, Country::Germany, Country::France,
                                           Country::Belgium, Country::Holland, Country::Bohemia};

struct City {
    Point place;
    Country country = Country::Britain;
    int size = 0;  ///< 1 to 4
    std::string name;
    bool atSea = false;
    bool onRiver = false;
};

/// A place for an airfield in the country.
struct AirfieldSite {
    Point place;
    Country country = Country::Britain;
    std::string name;
};

/// A road or railway between two cities: a chain of neighbouring tiles from one city's place to the other's.
struct Route {
    std::size_t from = 0;
    std::size_t to = 0;
    std::vector<Point> places;
};

/// The lie of the land.
struct Theatre {
    MapGrid<std::int16_t> height;     ///< metres, 0 and below is sea
    MapGrid<std::int16_t> landmass;   ///< number of the island or continent, -1 at sea
    MapGrid<std::uint8_t> coast;      ///< 1 for land that touches the sea with a side or a corner
    MapGrid<std::int8_t> downstream;  ///< the side to which water flows, -1 at sea
    MapGrid<std::int32_t> catchment;  ///< tiles whose water comes through here
    MapGrid<Country> country;         ///< of land
    MapGrid<std::int16_t> woods;      ///< above 0 is forest, the more the denser
    std::vector<City> cities;
    std::vector<AirfieldSite> airfieldSites;
    std::vector<Route> roads;
    std::vector<Route> rails;

    bool IsLand(Point place) const { return OnMap(place) && height[place] > 0; }
    bool IsRiver(Point place) const { return IsLand(place) && catchment[place] >= riverCatchment; }
    bool IsCoast(Point place) const { return OnMap(place) && coast[place] != 0; }

    static constexpr int riverCatchment = 340;
};

/// The invented theatre; always the same one.
Theatre MakeTheatre();

}  // namespace vtr
