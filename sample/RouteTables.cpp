#include "RouteTables.h"

#include <algorithm>
#include <span>

#include "Arithmetic.h"
#include "FineOffsetMaker.h"
#include "Noise.h"

namespace vtr {

namespace {

constexpr int usedRailwayLines = 850;

std::size_t LinesOf(const Route &route, int tilesPerLine) {
    const std::size_t steps = route.places.size() - 1;
    return std::max<std::size_t>(steps / static_cast<std::size_t>(tilesPerLine), 1);
}

// The shortest length of lines with which all routes fit into the table.
int TilesPerLine(const std::vector<Route> &routes) {
    int tilesPerLine = 0;
    std::size_t total = 0;
    do {
        ++tilesPerLine;
        total = 0;
        for (const Route &route : routes)
            total += LinesOf(route, tilesPerLine);
    } while (total > usedRailwayLines);
    return tilesPerLine;
}

// The routes in an order and direction in which each begins where the one before it ends, if one is left that
// does.
std::vector<Route> Chained(std::vector<Route> routes) {
    for (std::size_t done = 1; done < routes.size(); ++done) {
        const std::size_t city = routes[done - 1].to;
        const auto next =
            std::find_if(routes.begin() + static_cast<std::ptrdiff_t>(done), routes.end(),
                         [city](const Route &route) { return route.from == city || route.to == city; });
        if (next == routes.end())
            continue;
        if (next->from != city) {
            std::swap(next->from, next->to);
            std::ranges::reverse(next->places);
        }
        std::iter_swap(routes.begin() + static_cast<std::ptrdiff_t>(done), next);
    }
    return routes;
}

RailwayLine LineBetween(Point from, Point to) {
    return {ToInt16(from.x), ToInt16(to.x), ToInt16(from.y), ToInt16(to.y)};
}

// A stretch of route with up to 12 waypoints.
WaypointPath StretchOf(const Route &route, Random &random) {
    const auto tiles = static_cast<int>(route.places.size());
    const int apart = random.Between(2, 5);
    const int most = std::min<int>(waypointTotal, (tiles - 1) / apart + 1);
    const int count = std::max(random.Between(2, waypointTotal) * most / static_cast<int>(waypointTotal), 2);
    const int start = random.Below(std::max(tiles - (count - 1) * apart, 1));
    WaypointPath path;
    path.count = ToInt16(count);
    for (int i = 0; i < count; ++i) {
        const Point place = route.places[static_cast<std::size_t>(std::min(start + i * apart, tiles - 1))];
        path.waypoints[static_cast<std::size_t>(i)] = {ToInt16(place.x), ToInt16(place.y),
                                                       i == count - 1 ? flagSet : std::uint16_t{0}};
    }
    return path;
}

void FillPaths(const std::vector<Route> &routes, std::uint32_t seed, std::span<WaypointPath> paths) {
    Random random(seed);
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = StretchOf(routes[i % routes.size()], random);
}

}  // namespace

void FillRailways(const Theatre &theatre, Campaign &campaign) {
    const int tilesPerLine = TilesPerLine(theatre.rails);
    std::size_t used = 0;
    for (const Route &route : Chained(theatre.rails)) {
        const std::size_t lines = LinesOf(route, tilesPerLine);
        const auto placeAt = [&](std::size_t line) {
            return route.places[line * (route.places.size() - 1) / lines];
        };
        for (std::size_t line = 0; line < lines; ++line) {
            const Point from = placeAt(line);
            const Point to = placeAt(line + 1);
            RailwayLine &drawn = campaign.RailwayTable[used++];
            drawn = LineBetween(from, to);
            drawn.fineOffsets = {FineOffsetAt(from, 701), FineOffsetAt(to, 701), FineOffsetAt(from, 703),
                                 FineOffsetAt(to, 703)};
        }
    }
    campaign.RailwayLineCount = ToInt16(static_cast<int>(used));
}

void FillInterdictionPaths(const Theatre &theatre, Campaign &campaign) {
    FillPaths(theatre.roads, 801, campaign.RoadWaypointTable);
    FillPaths(theatre.rails, 803, campaign.RailWaypointTable);
}

}  // namespace vtr
