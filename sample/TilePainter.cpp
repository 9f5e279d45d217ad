#include "TilePainter.h"

#include <algorithm>
#include <cstdlib>

#include "Arithmetic.h"
#include "GroundPainter.h"
#include "MapGrid.h"
#include "Noise.h"
#include "TileTexture.h"

namespace vtr {

namespace {

constexpr int centre = tileEdge / 2;
constexpr int farAway = 1000;

bool Has(int sideSet, int side) {
    return (sideSet & SideBit(side)) != 0;
}

int Distance(Point a, Point b) {
    return static_cast<int>(SquareRoot(SquaredDistance(a, b)));
}

int DistanceToSide(Point at, int side) {
    const std::array<int, 4> distances{at.y, tileEdge - 1 - at.x, tileEdge - 1 - at.y, at.x};
    return distances[static_cast<std::size_t>(side)];
}

// A way to the north and the east follows a quarter of a circle. Every other way runs straight from the
// centre to the middle of its sides.
int DistanceToWay(Point at, int sideSet) {
    if (sideSet == (SideBit(0) | SideBit(1)))
        return std::abs(Distance(at, {tileEdge, 0}) - centre);
    int nearest = farAway;
    for (int side = 0; side < 4; ++side) {
        if (!Has(sideSet, side))
            continue;
        const bool onArm = DistanceToSide(at, side) <= centre;
        const int across = std::abs(side % 2 == 0 ? at.x - centre : at.y - centre);
        nearest = std::min(nearest, onArm ? across : Distance(at, {centre, centre}));
    }
    return nearest;
}

// How far at lies inland; negative in the sea. The shore crosses a side of the tile 96 pixels from its
// corner.
int DistanceToSea(Point at, const TileDesign &design) {
    constexpr int shore = 96;
    if (design.seaCorner)
        return std::max(DistanceToSide(at, 0), DistanceToSide(at, 1)) - shore;
    int inland = farAway;
    for (int side = 0; side < 4; ++side)
        if (Has(design.sea, side))
            inland = std::min(inland, DistanceToSide(at, side) - shore);
    return inland;
}

// Moves at a little, so that shapes bend, but not at the rim, where the next tile must fit.
Point Wobbled(Point at, int variant) {
    const TileTexture &texture = CoarseTexture();
    const Point from{at.x + 53 * variant, at.y + 97 * variant};
    int rim = 64;
    for (int side = 0; side < 4; ++side)
        rim = std::min(rim, DistanceToSide(at, side));
    return {at.x + texture.At(from.x, from.y) * rim / 8192,
            at.y + texture.At(from.y + 90, from.x + 40) * rim / 8192};
}

class WayPainter {
  public:
    explicit WayPainter(const TileDesign &design) : design_(design) {}

    // The colour of what lies on the ground at a place.
    std::uint8_t Over(std::uint8_t ground, Point at) const {
        const Point bent = Wobbled(at, design_.variant);
        std::uint8_t colour = ground;
        if (design_.sea != 0 || design_.seaCorner)
            colour = Shore(colour, at, DistanceToSea(bent, design_));
        if (design_.river != 0)
            colour = River(colour, at, DistanceToWay(bent, design_.river));
        if (design_.road != 0)
            colour = Road(colour, at);
        return design_.track != 0 ? Track(colour, at) : colour;
    }

  private:
    static int Grain(Point at) { return FineTexture().At(at.x, at.y); }

    std::uint8_t Shore(std::uint8_t ground, Point at, int inland) const {
        const int grain = Grain(at);
        if (inland > 14 + grain / 300)
            return ground;
        if (inland > 0)
            return Shade(Ramp::Sand, 10 + grain / 400 + inland / 6);
        if (inland > -4)
            return Shade(Ramp::Shallow, 14);
        if (inland > -34)
            return Shade(Ramp::Shallow, 12 + inland / 4 + grain / 700);
        return WaterAt(at);
    }

    std::uint8_t River(std::uint8_t ground, Point at, int distance) const {
        constexpr int halfWidth = 20;
        const int grain = Grain(at);
        if (distance > halfWidth + 6 + grain / 500)
            return ground;
        if (distance > halfWidth)
            return Shade(Ramp::Sand, 8 + grain / 400);
        return Shade(Ramp::Shallow, 3 + distance / 4 + grain / 900);
    }

    std::uint8_t Road(std::uint8_t ground, Point at) const {
        const int distance = DistanceToWay(at, design_.road);
        const bool onBridge = OverWater(at);
        if (distance > (onBridge ? 11 : 9))
            return ground;
        if (distance > 6)
            return onBridge ? Shade(Ramp::Concrete, 13) : Shade(Ramp::Hedge, 7 + Grain(at) / 500);
        if (distance == 0 && (at.x + at.y) % 16 < 8)
            return Shade(Ramp::Concrete, 14);
        return Shade(Ramp::Asphalt, 7 + Grain(at) / 900);
    }

    std::uint8_t Track(std::uint8_t ground, Point at) const {
        const int distance = DistanceToWay(at, design_.track);
        if (distance > (OverWater(at) ? 11 : 8))
            return ground;
        if (distance > 8)
            return Shade(Ramp::Concrete, 12);
        if (distance == 4)
            return Shade(Ramp::Asphalt, 14);
        if (distance < 7 && (at.x + at.y) % 6 < 3)
            return Shade(Ramp::Soil, 3);
        return Shade(Ramp::Rock, 8 + Grain(at) / 500);
    }

    bool OverWater(Point at) const { return design_.river != 0 && DistanceToWay(at, design_.river) < 36; }

    const TileDesign &design_;
};

}  // namespace

Palette TilePalette() {
    struct RampEnds {
        std::array<int, 3> dark;
        std::array<int, 3> light;
    };
    // In the order of Ramp.
    constexpr std::array<RampEnds, rampTotal> ends{{{{16, 42, 74}, {96, 140, 170}},
                                                    {{40, 86, 110}, {206, 226, 220}},
                                                    {{126, 108, 70}, {236, 220, 176}},
                                                    {{48, 74, 30}, {142, 164, 84}},
                                                    {{84, 94, 40}, {176, 180, 106}},
                                                    {{136, 112, 44}, {230, 206, 122}},
                                                    {{66, 46, 28}, {164, 126, 88}},
                                                    {{50, 84, 28}, {130, 176, 72}},
                                                    {{20, 44, 20}, {92, 124, 58}},
                                                    {{12, 30, 18}, {62, 94, 56}},
                                                    {{54, 48, 44}, {176, 166, 150}},
                                                    {{130, 142, 162}, {252, 252, 252}},
                                                    {{70, 30, 22}, {196, 112, 84}},
                                                    {{70, 70, 70}, {208, 204, 194}},
                                                    {{34, 34, 36}, {130, 128, 126}},
                                                    {{24, 42, 18}, {86, 108, 48}}}};
    Palette palette{};
    for (std::size_t index = 0; index < palette.size(); ++index)
        for (std::size_t part = 0; part < 3; ++part) {
            const RampEnds &ramp = ends[index / shadeTotal];
            const int shade = static_cast<int>(index) % shadeTotal;
            palette[index][part] =
                ToByte(ramp.dark[part] + (ramp.light[part] - ramp.dark[part]) * shade / (shadeTotal - 1));
        }
    return palette;
}

Bytes PaintTile(const TileDesign &design) {
    Bytes pixels = PaintGround(design.ground, design.variant);
    const WayPainter ways(design);
    std::size_t index = 0;
    for (int y = 0; y < tileEdge; ++y)
        for (int x = 0; x < tileEdge; ++x) {
            std::uint8_t &pixel = pixels[index++];
            pixel = ways.Over(pixel, {x, y});
        }
    return pixels;
}

}  // namespace vtr
