#include "Settlements.h"

#include <algorithm>

#include "Noise.h"
#include "PlaceNames.h"

namespace vtr {

namespace {

struct Share {
    Country country;
    int cities;
    int airfields;
};

constexpr std::array<Share, 6> shares{{{Country::Britain, 13, 38},
                                       {Country::Germany, 19, 50},
                                       {Country::France, 14, 34},
                                       {Country::Belgium, 6, 14},
                                       {Country::Holland, 5, 11},
                                       {Country::Bohemia, 7, 15}}};

struct Site {
    int worth;
    Point place;
};

bool NearEdge(Point place, int margin) {
    return place.x < margin || place.y < margin || place.x >= mapWidth - margin ||
           place.y >= mapHeight - margin;
}

template <typename Test>
bool AnyAround(Point centre, int reach, const Test &test) {
    for (int y = centre.y - reach; y <= centre.y + reach; ++y)
        for (int x = centre.x - reach; x <= centre.x + reach; ++x)
            if (OnMap({x, y}) && test(Point{x, y}))
                return true;
    return false;
}

// The sites of a country whose worth is above 0, the best first.
template <typename Worth>
std::vector<Site> RankedSites(const Theatre &theatre, Country country, const Worth &worth) {
    std::vector<Site> sites;
    ForEachPlace([&](Point place) {
        if (!theatre.IsLand(place) || theatre.country[place] != country || NearEdge(place, 6))
            return;
        if (const int value = worth(place); value > 0)
            sites.push_back({value, place});
    });
    std::ranges::stable_sort(sites, std::greater<>(), &Site::worth);
    return sites;
}

// The best count sites at the widest distance from each other that leaves room for all of them.
std::vector<Point> SpreadOut(const std::vector<Site> &sites, int count, int distance,
                             const std::vector<Point> &taken) {
    std::vector<Point> chosen;
    while (distance > 1) {
        chosen.clear();
        for (const Site &site : sites) {
            const auto tooNear = [&](Point other) {
                return SquaredDistance(site.place, other) < distance * distance;
            };
            if (std::ranges::none_of(chosen, tooNear) && std::ranges::none_of(taken, tooNear))
                chosen.push_back(site.place);
            if (std::ssize(chosen) == count)
                return chosen;
        }
        --distance;
    }
    return chosen;
}

int CityWorth(const Theatre &theatre, Point place) {
    if (theatre.height[place] > 520 || theatre.IsCoast(place))
        return 0;
    const bool river = theatre.IsRiver(place);
    const bool sea = AnyAround(place, 2, [&](Point near) { return theatre.IsCoast(near); });
    return 2000 + Noise(place.x, place.y, 30, 71) + (river ? 700 : 0) + (sea ? 500 : 0) -
           theatre.height[place];
}

// The first ranks are big cities, most are small ones.
int CitySize(int rank, int total) {
    if (rank * 8 < total)
        return 4;
    if (rank * 3 < total)
        return 3;
    return rank * 3 < total * 2 ? 2 : 1;
}

std::vector<Point> PlacesOf(const std::vector<City> &cities) {
    std::vector<Point> places;
    places.reserve(cities.size());
    for (const City &city : cities)
        places.push_back(city.place);
    return places;
}

}  // namespace

void FoundCities(Theatre &theatre) {
    for (const Share &share : shares) {
        const std::vector<Site> sites =
            RankedSites(theatre, share.country, [&](Point place) { return CityWorth(theatre, place); });
        int rank = 0;
        for (const Point place : SpreadOut(sites, share.cities, 46, PlacesOf(theatre.cities))) {
            City city;
            city.place = place;
            city.country = share.country;
            city.size = CitySize(rank, share.cities);
            city.name = PlaceName(share.country, rank++);
            city.atSea = AnyAround(place, 3, [&](Point near) { return theatre.IsCoast(near); });
            city.onRiver = AnyAround(place, 2, [&](Point near) { return theatre.IsRiver(near); });
            theatre.cities.push_back(city);
        }
    }
}

void PlaceAirfields(Theatre &theatre) {
    const std::vector<Point> cities = PlacesOf(theatre.cities);
    for (const Share &share : shares) {
        const std::vector<Site> sites = RankedSites(theatre, share.country, [&](Point place) {
            if (theatre.height[place] > 600 || theatre.IsCoast(place) || theatre.IsRiver(place))
                return 0;
            return 1200 - theatre.height[place] / 2 + Noise(place.x, place.y, 40, 83) / 2 +
                   Noise(place.x, place.y, 5, 87) / 4;
        });
        int number = share.cities;
        for (const Point place : SpreadOut(sites, share.airfields, 18, cities))
            theatre.airfieldSites.push_back({place, share.country, PlaceName(share.country, number++)});
    }
}

}  // namespace vtr
