#include "TerrainPainter.h"

#include <algorithm>
#include <bit>
#include <initializer_list>

#include "Arithmetic.h"
#include "Noise.h"
#include "TileDesigns.h"

namespace vtr {

namespace {

using SideSets = MapGrid<std::uint8_t>;

// Sets of sides before they are turned.
constexpr int endSides = 0b0001;
constexpr int straightSides = 0b0101;
constexpr int bendSides = 0b0011;
constexpr int forkSides = 0b1011;

constexpr int Turned(int sideSet, int quarters) {
    return (sideSet << quarters | sideSet >> (4 - quarters)) & 0b1111;
}

// How many quarter turns to the right make shape equal to sideSet. 0 when none do.
int QuartersTo(int sideSet, int shape) {
    for (int quarters = 1; quarters < 4; ++quarters)
        if (Turned(shape, quarters) == sideSet)
            return quarters;
    return 0;
}

bool IsStraight(int sideSet) {
    return sideSet == straightSides || sideSet == Turned(straightSides, 1);
}

std::uint8_t TileByte(Tile tile, int quarters) {
    return ToByte(static_cast<int>(tile) | quarters << 6);
}

class TerrainPainter {
  public:
    explicit TerrainPainter(const Theatre &theatre) : theatre_(theatre) {
        MarkRoutes(theatre.roads, roads_);
        MarkRoutes(theatre.rails, rails_);
        for (const City &city : theatre.cities)
            for (const Point place : BuiltUpPlaces(theatre, city))
                cityDistance_[place] = ToByte(1 + SquaredDistance(place, city.place));
        for (const City &city : theatre.cities)
            MarkFarmland(city);
    }

    std::uint8_t Paint(Point place) const {
        if (!theatre_.IsLand(place))
            return TileByte(Tile::Water, 0);
        if (theatre_.IsCoast(place))
            return Coast(place);
        if (theatre_.IsRiver(place))
            return River(place);
        if (cityDistance_[place] != 0)
            return CityTile(place);
        if (roads_[place] != 0)
            return Road(place);
        return OpenLand(place);
    }

  private:
    static void MarkRoutes(const std::vector<Route> &routes, SideSets &sideSets) {
        for (const Route &route : routes)
            for (std::size_t i = 1; i < route.places.size(); ++i)
                for (int side = 0; side < 4; ++side)
                    if (Neighbour(route.places[i - 1], side) == route.places[i]) {
                        sideSets[route.places[i - 1]] |= ToByte(SideBit(side));
                        sideSets[route.places[i]] |= ToByte(SideBit(OppositeSide(side)));
                    }
    }

    void MarkFarmland(const City &city) {
        const int reach = 9 + 3 * city.size;
        for (int y = city.place.y - reach; y <= city.place.y + reach; ++y)
            for (int x = city.place.x - reach; x <= city.place.x + reach; ++x)
                if (OnMap({x, y}) && SquaredDistance({x, y}, city.place) <= reach * reach)
                    farmed_[{x, y}] = 1;
    }

    static std::uint32_t Dice(Point place) { return Hash(place.x, place.y, 131); }

    static Tile OneOf(std::initializer_list<Tile> tiles, std::uint32_t dice) {
        return *(tiles.begin() + dice % tiles.size());
    }

    int SeaSides(Point place) const {
        int sideSet = 0;
        for (int side = 0; side < 4; ++side)
            if (const Point next = Neighbour(place, side); OnMap(next) && !theatre_.IsLand(next))
                sideSet |= SideBit(side);
        return sideSet;
    }

    std::uint8_t Coast(Point place) const {
        const int sea = SeaSides(place);
        switch (std::popcount(static_cast<unsigned>(sea))) {
            case 0:
                return CoastCorner(place);
            case 1:
                return StraightCoast(place, QuartersTo(sea, endSides));
            case 3:
                return TileByte(Tile::Coast5, QuartersTo(sea, forkSides));
            case 4:
                return TileByte(Tile::CostU2, 0);
            default:
                break;
        }
        if (!IsStraight(sea))
            return TileByte(Tile::Coast3, QuartersTo(sea, bendSides));
        const bool bridged = roads_[place] != 0;
        return TileByte(bridged ? Tile::CostBR : Tile::Coast6, QuartersTo(sea, straightSides));
    }

    // The sea touches this place with corners only.
    std::uint8_t CoastCorner(Point place) const {
        if (theatre_.IsRiver(place))
            return River(place);
        for (int side = 0; side < 4; ++side) {
            const Point corner = Neighbour(Neighbour(place, side), (side + 1) % 4);
            if (OnMap(corner) && !theatre_.IsLand(corner))
                return TileByte(Tile::Coast4, side);
        }
        return OpenLand(place);
    }

    std::uint8_t StraightCoast(Point place, int quarters) const {
        if (theatre_.IsRiver(place))
            return TileByte(Tile::CostRV, quarters);
        if (cityDistance_[place] != 0)
            return TileByte(Tile::CostCT, quarters);
        const int alongShore = Turned(straightSides, (quarters + 1) % 2);
        if (((roads_[place] | rails_[place]) & alongShore) == alongShore)
            return TileByte(Tile::CostTR, quarters);
        if (Noise(place.x, place.y, 8, 161) > 350)
            return TileByte(Tile::CostU1, quarters);
        return TileByte(OneOf({Tile::Coast1, Tile::Coast2}, Dice(place)), quarters);
    }

    int RiverSides(Point place) const {
        int sideSet = SideBit(theatre_.downstream[place]);
        for (int side = 0; side < 4; ++side) {
            const Point next = Neighbour(place, side);
            if (theatre_.IsRiver(next) && theatre_.downstream[next] == OppositeSide(side))
                sideSet |= SideBit(side);
        }
        return sideSet;
    }

    std::uint8_t River(Point place) const {
        const int river = RiverSides(place);
        const std::uint32_t dice = Dice(place);
        switch (std::popcount(static_cast<unsigned>(river))) {
            case 1:
                return TileByte(Tile::RivrND, QuartersTo(river, endSides));
            case 3:
                return TileByte(Tile::RivrFK, QuartersTo(river, forkSides));
            case 4:
                return TileByte(Tile::River8, 0);
            default:
                break;
        }
        if (!IsStraight(river))
            return TileByte(OneOf({Tile::River2, Tile::River6, Tile::River9}, dice),
                            QuartersTo(river, bendSides));
        const int quarters = QuartersTo(river, straightSides);
        const int across = Turned(river, 1);
        if ((roads_[place] & across) == across)
            return TileByte(Tile::RivrBR, quarters);
        if ((rails_[place] & across) == across)
            return TileByte(Tile::RivrTR, quarters);
        return TileByte(OneOf({Tile::River1, Tile::River4, Tile::River5, Tile::River7}, dice), quarters);
    }

    std::uint8_t CityTile(Point place) const {
        const std::uint32_t dice = Dice(place);
        const int quarters = static_cast<int>(dice >> 8 & 3);
        if (cityDistance_[place] <= 2)
            return TileByte(OneOf({Tile::City1, Tile::City2}, dice), quarters);
        if (cityDistance_[place] <= 5)
            return TileByte(OneOf({Tile::City3, Tile::City4, Tile::City5}, dice), quarters);
        return TileByte(OneOf({Tile::City7, Tile::City8, Tile::City9}, dice), quarters);
    }

    std::uint8_t Road(Point place) const {
        const int road = roads_[place];
        switch (std::popcount(static_cast<unsigned>(road))) {
            case 1:
                return TileByte(Tile::Road8, QuartersTo(road, endSides));
            case 3:
                return TileByte(Tile::Road4, QuartersTo(road, forkSides));
            case 4:
                return TileByte(Tile::Road6, 0);
            default:
                break;
        }
        if (!IsStraight(road))
            return TileByte(Tile::Road2, QuartersTo(road, bendSides));
        const int quarters = QuartersTo(road, straightSides);
        if (theatre_.woods[place] > 0)
            return TileByte(Tile::Road10, quarters);
        return TileByte(farmed_[place] != 0 ? Tile::Road9 : Tile::Road1, quarters);
    }

    std::uint8_t OpenLand(Point place) const {
        const std::uint32_t dice = Dice(place);
        const int quarters = static_cast<int>(dice >> 8 & 3);
        const int metres = theatre_.height[place];
        if (metres > 900)
            return TileByte(metres > 1900   ? Tile::Mount4
                            : metres > 1500 ? Tile::Mount3
                            : metres > 1150 ? Tile::Mount2
                                            : Tile::Mount1,
                            quarters);
        const int woods = theatre_.woods[place];
        if (woods > 0 && metres > 500)
            return TileByte(OneOf({Tile::Forst6, Tile::Forst7}, dice), quarters);
        if (woods > 250)
            return TileByte(OneOf({Tile::Forst1, Tile::Forst2, Tile::Forst3}, dice), quarters);
        if (woods > 0)
            return TileByte(OneOf({Tile::Forst4, Tile::Forst5}, dice), quarters);
        if (metres < 600 && (farmed_[place] != 0 || Noise(place.x, place.y, 12, 141) > 100))
            return TileByte(OneOf({Tile::Field1, Tile::Field2, Tile::Field4, Tile::Field5, Tile::Field6,
                                   Tile::Field7, Tile::Field8},
                                  Hash(place.x / 3, place.y / 2, 151)),
                            quarters);
        return TileByte(Tile::Grass, quarters);
    }

    const Theatre &theatre_;
    SideSets roads_;
    SideSets rails_;
    MapGrid<std::uint8_t> cityDistance_;  // 1 + the square of the distance to the centre, 0 outside cities
    MapGrid<std::uint8_t> farmed_;
};

}  // namespace

TerrainMap PaintTerrain(const Theatre &theatre) {
    const TerrainPainter painter(theatre);
    TerrainMap terrain;
    terrain.reserve(terrainSize);
    ForEachPlace([&](Point place) { terrain.push_back(painter.Paint(place)); });
    return terrain;
}

std::vector<Point> BuiltUpPlaces(const Theatre &theatre, const City &city) {
    constexpr std::array<int, 5> squaredReach{0, 1, 2, 5, 9};
    std::vector<Point> places;
    for (int y = city.place.y - 3; y <= city.place.y + 3; ++y)
        for (int x = city.place.x - 3; x <= city.place.x + 3; ++x)
            if (theatre.IsLand({x, y}) &&
                SquaredDistance({x, y}, city.place) <= squaredReach[static_cast<std::size_t>(city.size)])
                places.push_back({x, y});
    return places;
}

}  // namespace vtr
