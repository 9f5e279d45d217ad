#include "MapPicture.h"

#include <algorithm>

#include "Arithmetic.h"
#include "TerrainPainter.h"

namespace vtr {

namespace {

struct Colour {
    int red;
    int green;
    int blue;
};

Colour Mix(Colour from, Colour to, int share, int whole) {
    share = std::clamp(share, 0, whole);
    return {from.red + (to.red - from.red) * share / whole,
            from.green + (to.green - from.green) * share / whole,
            from.blue + (to.blue - from.blue) * share / whole};
}

struct Tint {
    int metres;
    Colour colour;
};

constexpr std::array<Tint, 9> tints{{{-500, {92, 137, 173}},
                                     {-130, {126, 169, 196}},
                                     {0, {176, 208, 217}},
                                     {1, {178, 194, 142}},
                                     {180, {198, 206, 152}},
                                     {420, {219, 210, 164}},
                                     {800, {203, 178, 132}},
                                     {1500, {168, 140, 112}},
                                     {2600, {244, 242, 238}}}};

Colour TintOf(int metres) {
    if (metres <= tints.front().metres)
        return tints.front().colour;
    for (std::size_t i = 1; i < tints.size(); ++i)
        if (metres <= tints[i].metres)
            return Mix(tints[i - 1].colour, tints[i].colour, metres - tints[i - 1].metres,
                       tints[i].metres - tints[i - 1].metres);
    return tints.back().colour;
}

// How much lighter than level ground a slope is: above 0 when it faces the north-west, below on the other
// side.
int SunOn(const Theatre &theatre, Point place) {
    const Point before{std::max(place.x - 1, 0), std::max(place.y - 1, 0)};
    const Point after{std::min(place.x + 1, mapWidth - 1), std::min(place.y + 1, mapHeight - 1)};
    const auto metres = [&](int x, int y) { return std::max<int>(theatre.height[{x, y}], 0); };
    const int rise = metres(after.x, place.y) - metres(before.x, place.y) + metres(place.x, after.y) -
                     metres(place.x, before.y);
    return std::clamp(rise / 5, -52, 44);
}

Colour Lit(Colour colour, int light) {
    return light > 0 ? Mix(colour, {255, 255, 246}, light, 128) : Mix(colour, {52, 48, 66}, -light, 128);
}

bool OnBorder(const Theatre &theatre, Point place) {
    if (!theatre.IsLand(place))
        return false;
    for (const int side : {1, 2}) {
        const Point next = Neighbour(place, side);
        if (theatre.IsLand(next) && theatre.country[next] != theatre.country[place])
            return true;
    }
    return false;
}

Colour ColourOf(const Theatre &theatre, Point place) {
    Colour colour = TintOf(theatre.height[place]);
    if (!theatre.IsLand(place))
        return place.x % 80 == 0 || place.y % 80 == 0 ? Mix(colour, {236, 246, 250}, 1, 5) : colour;
    if (theatre.height[place] < 900 && theatre.woods[place] > 0)
        colour = Mix(colour, {122, 152, 98}, 3, 5);
    colour = Lit(colour, SunOn(theatre, place));
    if (theatre.IsRiver(place))
        colour = Mix(colour, {88, 138, 180}, theatre.catchment[place] > 2000 ? 9 : 6, 10);
    if (OnBorder(theatre, place) && (place.x + place.y) % 4 != 0)
        colour = Mix(colour, {122, 62, 74}, 3, 5);
    return theatre.IsCoast(place) ? Mix(colour, {70, 92, 104}, 2, 5) : colour;
}

}  // namespace

Picture PaintMap(const Theatre &theatre) {
    std::vector<Colour> colours;
    colours.reserve(terrainSize);
    ForEachPlace([&](Point place) { colours.push_back(ColourOf(theatre, place)); });
    for (const Route &road : theatre.roads)
        for (const Point place : road.places) {
            Colour &colour = colours[MapGrid<int>::Index(place)];
            colour = Mix(colour, {176, 120, 84}, 1, 3);
        }
    for (const City &city : theatre.cities)
        for (const Point place : BuiltUpPlaces(theatre, city))
            colours[MapGrid<int>::Index(place)] = {150, 84, 72};
    Picture picture{mapWidth, mapHeight, {}};
    for (const Colour &colour : colours)
        picture.pixels.push_back(0xFF000000U | static_cast<std::uint32_t>(ToByte(colour.red)) << 16 |
                                 static_cast<std::uint32_t>(ToByte(colour.green)) << 8 | ToByte(colour.blue));
    return picture;
}

Bytes EncodeBmp(const Picture &picture) {
    constexpr std::uint32_t headerSize = 54;
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    const std::size_t stride = (width * 3 + 3) / 4 * 4;
    Bytes bytes(headerSize + stride * height);
    bytes[0] = 'B';
    bytes[1] = 'M';
    PutUint32(bytes, 2, static_cast<std::uint32_t>(bytes.size()));
    PutUint32(bytes, 10, headerSize);
    PutUint32(bytes, 14, 40);
    PutUint32(bytes, 18, static_cast<std::uint32_t>(width));
    PutUint32(bytes, 22, static_cast<std::uint32_t>(height));
    PutUint16(bytes, 26, 1);
    PutUint16(bytes, 28, 24);
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint32_t pixel = picture.pixels[y * width + x];
            const std::size_t at = headerSize + (height - 1 - y) * stride + 3 * x;
            PutUint16(bytes, at, static_cast<std::uint16_t>(pixel & 0xFFFF));
            bytes[at + 2] = static_cast<std::uint8_t>(pixel >> 16 & 0xFF);
        }
    return bytes;
}

}  // namespace vtr
