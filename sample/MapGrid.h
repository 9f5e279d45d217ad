#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "TerrainMap.h"

namespace vtr {

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point &) const = default;
};

inline int SquaredDistance(Point a, Point b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

/// The four sides in the order of the tiles' orientation bits: north, east, south, west.
constexpr std::array<Point, 4> sides{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
constexpr int OppositeSide(int side) {
    return (side + 2) % 4;
}
/// A set of sides has bit `1 << side` for each side in it.
constexpr int SideBit(int side) {
    return 1 << side;
}

inline Point Neighbour(Point place, int side) {
    const Point step = sides[static_cast<std::size_t>(side)];
    return {place.x + step.x, place.y + step.y};
}

constexpr bool OnMap(Point place) {
    return place.x >= 0 && place.x < mapWidth && place.y >= 0 && place.y < mapHeight;
}

/// A value for every tile of the map.
template <typename Value>
class MapGrid {
  public:
    explicit MapGrid(Value value = {}) : values_(terrainSize, value) {}

    static std::size_t Index(Point place) {
        const int index = place.y * mapWidth + place.x;
        return static_cast<std::size_t>(index);
    }
    static Point PlaceOf(std::size_t index) {
        const int number = static_cast<int>(index);
        return {number % mapWidth, number / mapWidth};
    }

    Value &operator[](Point place) { return values_[Index(place)]; }
    const Value &operator[](Point place) const { return values_[Index(place)]; }

  private:
    std::vector<Value> values_;
};

/// Calls visit for every place of the map, row by row.
template <typename Visit>
void ForEachPlace(const Visit &visit) {
    for (int y = 0; y < mapHeight; ++y)
        for (int x = 0; x < mapWidth; ++x)
            visit(Point{x, y});
}

}  // namespace vtr
