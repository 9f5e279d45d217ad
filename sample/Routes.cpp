#include "Routes.h"

#include <algorithm>
#include <cstdlib>
#include <queue>

#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

namespace {

constexpr int blocked = -1;
constexpr int leastCost = 10;
constexpr int sharedRoadCost = 5;

using TileCosts = MapGrid<std::int16_t>;

struct Reached {
    int estimate;
    int cost;
    std::size_t index;

    bool operator>(const Reached &other) const {
        return estimate != other.estimate ? estimate > other.estimate : index > other.index;
    }
};

// The cheapest way from one place to another within a margin around both; empty when there is none. No tile
// costs less than least (A*).
std::vector<Point> CheapestWay(Point from, Point to, const TileCosts &tileCosts, int least) {
    constexpr int margin = 40;
    const Point low{std::max(std::min(from.x, to.x) - margin, 0),
                    std::max(std::min(from.y, to.y) - margin, 0)};
    const Point high{std::min(std::max(from.x, to.x) + margin, mapWidth - 1),
                     std::min(std::max(from.y, to.y) + margin, mapHeight - 1)};
    const int width = high.x - low.x + 1;
    const auto indexOf = [&](Point place) {
        const int index = (place.y - low.y) * width + place.x - low.x;
        return static_cast<std::size_t>(index);
    };
    const auto distance = [&](Point place) {
        return (std::abs(place.x - to.x) + std::abs(place.y - to.y)) * least;
    };
    const std::size_t area = indexOf(high) + 1;
    std::vector<int> costs(area, -1);
    std::vector<std::int8_t> cameFrom(area, -1);
    std::priority_queue<Reached, std::vector<Reached>, std::greater<>> front;
    costs[indexOf(from)] = 0;
    front.push({distance(from), 0, indexOf(from)});
    while (!front.empty() && front.top().index != indexOf(to)) {
        const Reached reached = front.top();
        front.pop();
        if (reached.cost > costs[reached.index])
            continue;
        const int number = static_cast<int>(reached.index);
        const Point place{low.x + number % width, low.y + number / width};
        for (int side = 0; side < 4; ++side) {
            const Point next = Neighbour(place, side);
            if (next.x < low.x || next.y < low.y || next.x > high.x || next.y > high.y)
                continue;
            const int step = tileCosts[next];
            if (step == blocked)
                continue;
            const int cost = reached.cost + step;
            int &known = costs[indexOf(next)];
            if (known >= 0 && known <= cost)
                continue;
            known = cost;
            cameFrom[indexOf(next)] = static_cast<std::int8_t>(OppositeSide(side));
            front.push({cost + distance(next), cost, indexOf(next)});
        }
    }
    if (front.empty())
        return {};
    std::vector<Point> way{to};
    while (way.back() != from)
        way.push_back(Neighbour(way.back(), cameFrom[indexOf(way.back())]));
    std::ranges::reverse(way);
    return way;
}

// True when no third city lies within the circle whose diameter joins the two (Gabriel graph).
bool AreNeighbours(const Theatre &theatre, std::size_t a, std::size_t b) {
    const Point first = theatre.cities[a].place;
    const Point second = theatre.cities[b].place;
    if (theatre.landmass[first] != theatre.landmass[second])
        return false;
    for (std::size_t c = 0; c < theatre.cities.size(); ++c) {
        const Point third = theatre.cities[c].place;
        if (c != a && c != b &&
            SquaredDistance(first, third) + SquaredDistance(third, second) < SquaredDistance(first, second))
            return false;
    }
    return true;
}

TileCosts GroundCosts(const Theatre &theatre, int steepness) {
    TileCosts costs(blocked);
    ForEachPlace([&](Point place) {
        if (!theatre.IsLand(place))
            return;
        const int rough = std::max(FractalNoise(place.x, place.y, 10, 2, 91) + 300, 0);
        costs[place] =
            ToInt16(leastCost + (theatre.IsCoast(place) ? 16 : 0) + (theatre.IsRiver(place) ? 30 : 0) +
                    theatre.height[place] * steepness / 100 + rough / 25);
    });
    return costs;
}

std::vector<Route> JoinCities(const Theatre &theatre, TileCosts costs, bool shareRoads) {
    std::vector<Route> routes;
    for (std::size_t from = 0; from < theatre.cities.size(); ++from)
        for (std::size_t to = from + 1; to < theatre.cities.size(); ++to) {
            if (!AreNeighbours(theatre, from, to))
                continue;
            Route route{from, to,
                        CheapestWay(theatre.cities[from].place, theatre.cities[to].place, costs,
                                    shareRoads ? sharedRoadCost : leastCost)};
            if (route.places.empty())
                continue;
            if (shareRoads)
                for (const Point place : route.places)
                    costs[place] = sharedRoadCost;
            routes.push_back(std::move(route));
        }
    return routes;
}

}  // namespace

void BuildRoads(Theatre &theatre) {
    theatre.roads = JoinCities(theatre, GroundCosts(theatre, 3), true);
}

void BuildRails(Theatre &theatre) {
    theatre.rails = JoinCities(theatre, GroundCosts(theatre, 6), false);
}

}  // namespace vtr
