#include "Landscape.h"

#include <algorithm>
#include <queue>
#include <string_view>

#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

namespace {

// The theatre as drawn by hand, ten tiles a character: ~ deep sea, - shallow sea, 0 lowland to 9 high peaks.
constexpr int sketchScale = 10;
constexpr int sketchWidth = mapWidth / sketchScale;
constexpr int sketchHeight = mapHeight / sketchScale;
// clang-format off
constexpr std::array<std::string_view, sketchHeight> sketch{
    "~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~",
    "~~~~~~~~--~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~-1331-~~~~~",
    "~~~~~~-2441--~~~~~~~~~~~~~~~~~~~~~~~~~-11-~~~~~~~~~-1355431-~~~~",
    "~~-~~-256641--~~~~~~~~~~~~~~~~~~~~~~~-1221-~~~~~~~~-23566543-~~~",
    "~-1-~-2567521-~~~~~~~~~~~~~~~~~~~~~~~-1221-~~~~~~~~-124554321-~~",
    "~121~~-256532-~~~~~~~~~~~~~~~~~~~~~~~-1221-~~~~~~~~~-122332211--",
    "-131~~-2455421-~~~~~~~~~~~~~~~~~~~~~~-1221-~~--~~~~~~-01221110-~",
    "-120~-~-345431-~~~~~~~~~~~~~~--~~~~~--1222--01-~~~~~~~--0000--~-",
    "~--~~--2345431-~~~~~~~~~~~~~-01-~~~--11221-0110-~~~~~~~~----~--0",
    "~~~~~-12345542--~~~~~~~~~~~~-00----01122210-00-~~~~~~~~~~----012",
    "~~~~~-112455421-~~~~~~~~~~~--0000001112222111--~~~~~~-----000122",
    "~~~~~~-1235543110--~~~~~~~~-0110001111222221110------00001111222",
    "~~~~~-011245432110-~~~~~~~-01110-0111222332211110000111111222233",
    "~~~~-12222344322100-~~~~~-01110000112233332211111111222222223333",
    "~~~-0234432333221110-~~~~-01110001112233332222111112223332223333",
    "~~-0123443223332211100-~~~-0111111122334433222221122334433223333",
    "~~-013443-012332222110-~~~--112222223445543322322223444433333444",
    "~~~-0221-~-0122332211-~~---0122332334566543333333334455443334455",
    "~~~--00-~~-00122110--~--0011122344344555443333344344566554445566",
    "~~~~--~~~~--0011--~~~-001112233455443444443334455455677665556667",
    "~~~~~~~~~~~~----~~~--0111222234456554433444455666656788766556777",
    "~~~~~~~~~~~~~~~~~-0011112222233456665544445566788766778876656666",
    "~~~---~~~~----~---0122222222233455667665556678998777777765554444",
    "~~-0100---00110-001222332222222344567776667899988766666544333333",
    "~~-1222100112221112223344332222233456788777899987655554332222222",
    "~~-2333221122333222333444433222223456888888998765444332221112222",
    "~~-1233332223333333344455544332222235678999998765433221111001111",
    "~~~-0123332233444443445666544322112235788998765432211100----0000",
    "~~~~--012322234444433456665432110---1234677654321100--~~~~~~----",
    "~~~~~~--011122333222334454321-~~~~~~--12455432100-~~~~~~~~~~~~~~",
    "~~~~~~~~--0011121110122332-~~~~~~~~~~~~-23443210-~~~~~~~~~~~~~~~",
    "~~~~~~~~~~~-0000110-0012211-~~~~~~~~~~~~-1233210-~~~~~~~~~~~~~~~"};
// clang-format on
static_assert(std::ranges::all_of(sketch, [](std::string_view row) { return row.size() == sketchWidth; }));

constexpr std::array<int, 10> sketchMetres{70, 130, 200, 300, 430, 620, 900, 1300, 1800, 2500};

int SketchedMetres(int column, int row) {
    const char drawn = sketch[static_cast<std::size_t>(std::clamp(row, 0, sketchHeight - 1))]
                             [static_cast<std::size_t>(std::clamp(column, 0, sketchWidth - 1))];
    if (drawn == '~')
        return -330;
    return drawn == '-' ? -80 : sketchMetres[static_cast<std::size_t>(drawn - '0')];
}

// The weights of three neighbours at position 0 to 20 along the middle one (quadratic B-spline). Their sum is
// 800.
constexpr std::array<int, 3> SplineWeights(int position) {
    const int rest = 20 - position;
    return {rest * rest, 400 + 40 * position - 2 * position * position, position * position};
}

int SmoothedSketch(Point place) {
    const std::array<int, 3> across = SplineWeights(place.x % sketchScale * 2 + 1);
    const std::array<int, 3> down = SplineWeights(place.y % sketchScale * 2 + 1);
    int sum = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            sum += SketchedMetres(place.x / sketchScale + column - 1, place.y / sketchScale + row - 1) *
                   (across[static_cast<std::size_t>(column)] * down[static_cast<std::size_t>(row)] / 64);
    return sum / 10000;
}

int HeightOf(Point place) {
    const Point bent{
        std::clamp(place.x + FractalNoise(place.x, place.y, 32, 3, 11) * 9 / 1024, 0, mapWidth - 1),
        std::clamp(place.y + FractalNoise(place.x, place.y, 32, 3, 23) * 9 / 1024, 0, mapHeight - 1)};
    const int smooth = SmoothedSketch(bent);
    const int roughness = 150 + std::max(smooth, 0) * 5 / 16;
    return smooth + FractalNoise(place.x, place.y, 40, 5, 31) * roughness / 1024;
}

// The places that are joined to start by their sides and are land, or sea, as start is.
std::vector<Point> PatchAround(Point start, const Theatre &theatre, MapGrid<std::uint8_t> &seen) {
    std::vector<Point> patch{start};
    seen[start] = 1;
    for (std::size_t next = 0; next < patch.size(); ++next)
        for (int side = 0; side < 4; ++side) {
            const Point place = Neighbour(patch[next], side);
            if (OnMap(place) && seen[place] == 0 && theatre.IsLand(place) == theatre.IsLand(start)) {
                seen[place] = 1;
                patch.push_back(place);
            }
        }
    return patch;
}

// Floods islets, fills ponds and numbers the remaining lands.
void TidyAndNumber(Theatre &theatre) {
    constexpr std::size_t smallestIsland = 12;
    constexpr std::size_t smallestLake = 16;
    MapGrid<std::uint8_t> seen;
    std::int16_t landmasses = 0;
    ForEachPlace([&](Point start) {
        if (seen[start] != 0)
            return;
        const bool land = theatre.IsLand(start);
        const std::vector<Point> patch = PatchAround(start, theatre, seen);
        const bool keep = patch.size() >= (land ? smallestIsland : smallestLake);
        if (!keep)
            for (const Point place : patch)
                theatre.height[place] = land ? -20 : 20;
    });
    seen = MapGrid<std::uint8_t>();
    ForEachPlace([&](Point start) {
        if (seen[start] != 0)
            return;
        const std::int16_t number = theatre.IsLand(start) ? landmasses++ : std::int16_t{-1};
        for (const Point place : PatchAround(start, theatre, seen))
            theatre.landmass[place] = number;
    });
}

bool TouchesSea(const Theatre &theatre, Point land) {
    for (int y = land.y - 1; y <= land.y + 1; ++y)
        for (int x = land.x - 1; x <= land.x + 1; ++x)
            if (OnMap({x, y}) && !theatre.IsLand({x, y}))
                return true;
    return false;
}

struct Wet {
    int level;
    std::uint32_t lot;  // a random order of places of the same level, so that streams wind
    Point place;

    bool operator>(const Wet &other) const {
        return level != other.level ? level > other.level : lot > other.lot;
    }
};

std::uint32_t LotOf(Point place) {
    return Hash(place.x, place.y, 41);
}

struct Capital {
    Point place;
    Country country;
};

// Land belongs to the country whose nearest entry here is nearest.
constexpr std::array<Capital, 19> capitals{{{{90, 70}, Country::Britain},
                                            {{110, 130}, Country::Britain},
                                            {{70, 170}, Country::Britain},
                                            {{170, 160}, Country::Britain},
                                            {{60, 265}, Country::France},
                                            {{140, 270}, Country::France},
                                            {{210, 240}, Country::France},
                                            {{240, 290}, Country::France},
                                            {{255, 178}, Country::Belgium},
                                            {{290, 196}, Country::Belgium},
                                            {{270, 130}, Country::Holland},
                                            {{310, 110}, Country::Holland},
                                            {{400, 60}, Country::Germany},
                                            {{385, 150}, Country::Germany},
                                            {{355, 225}, Country::Germany},
                                            {{470, 150}, Country::Germany},
                                            {{545, 50}, Country::Germany},
                                            {{590, 130}, Country::Bohemia},
                                            {{560, 230}, Country::Bohemia}}};

}  // namespace

void ShapeLand(Theatre &theatre) {
    ForEachPlace([&](Point place) { theatre.height[place] = ToInt16(HeightOf(place)); });
    TidyAndNumber(theatre);
    ForEachPlace([&](Point place) {
        theatre.coast[place] = theatre.IsLand(place) && TouchesSea(theatre, place) ? 1 : 0;
    });
}

// The sea rises over the land; each tile drains into the one from which it was flooded ("priority flood").
void RunRivers(Theatre &theatre) {
    theatre.downstream = MapGrid<std::int8_t>(-1);
    MapGrid<std::uint8_t> flooded;
    std::priority_queue<Wet, std::vector<Wet>, std::greater<>> front;
    std::vector<Point> order;
    ForEachPlace([&](Point place) {
        if (theatre.IsLand(place))
            return;
        flooded[place] = 1;
        for (int side = 0; side < 4; ++side)
            if (theatre.IsLand(Neighbour(place, side))) {
                front.push({0, LotOf(place), place});
                return;
            }
    });
    while (!front.empty()) {
        const Wet wet = front.top();
        front.pop();
        for (int side = 0; side < 4; ++side) {
            const Point place = Neighbour(wet.place, side);
            if (!OnMap(place) || flooded[place] != 0)
                continue;
            flooded[place] = 1;
            theatre.downstream[place] = static_cast<std::int8_t>(OppositeSide(side));
            order.push_back(place);
            front.push({std::max<int>(wet.level, theatre.height[place]), LotOf(place), place});
        }
    }
    std::ranges::for_each(order.rbegin(), order.rend(), [&](Point place) {
        theatre.catchment[place] += 1;
        theatre.catchment[Neighbour(place, theatre.downstream[place])] += theatre.catchment[place];
    });
}

void DrawBorders(Theatre &theatre) {
    ForEachPlace([&](Point place) {
        if (!theatre.IsLand(place))
            return;
        const Point bent{place.x + FractalNoise(place.x, place.y, 32, 3, 51) * 9 / 1024,
                         place.y + FractalNoise(place.x, place.y, 32, 3, 61) * 9 / 1024};
        theatre.country[place] = std::ranges::min_element(capitals, {}, [&](const Capital &capital) {
                                     return SquaredDistance(capital.place, bent);
                                 })->country;
    });
}

void GrowWoods(Theatre &theatre) {
    ForEachPlace([&](Point place) {
        if (theatre.IsLand(place))
            theatre.woods[place] = ToInt16(FractalNoise(place.x, place.y, 24, 4, 101) - 350);
    });
}

}  // namespace vtr
