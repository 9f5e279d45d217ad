#include "FrontlineMaker.h"

#include <algorithm>

#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

namespace {

constexpr int anchors = 6;

/// The course of the front in one slot, from its southern or western end to its northern or eastern end.
struct KeyFront {
    int slot;
    std::array<Point, anchors> points;
};

constexpr std::array<KeyFront, 6> keyFronts{
    {{0, {{{95, 252}, {100, 262}, {112, 271}, {128, 272}, {142, 262}, {152, 234}}}},
     {4, {{{70, 250}, {84, 280}, {112, 291}, {150, 285}, {172, 258}, {190, 215}}}},
     {7, {{{128, 312}, {150, 300}, {170, 282}, {184, 255}, {196, 232}, {198, 207}}}},
     {11, {{{225, 312}, {228, 285}, {232, 260}, {238, 240}, {243, 218}, {240, 198}}}},
     {15, {{{300, 292}, {305, 268}, {308, 240}, {300, 205}, {290, 190}, {272, 176}}}},
     {19, {{{349, 261}, {352, 248}, {353, 230}, {352, 205}, {346, 150}, {344, 99}}}}}};

Point Between(Point from, Point to, int share, int whole) {
    return {from.x + (to.x - from.x) * share / whole, from.y + (to.y - from.y) * share / whole};
}

std::array<Point, anchors> AnchorsIn(int slot) {
    std::size_t next = 1;
    while (keyFronts[next].slot < slot)
        ++next;
    const KeyFront &before = keyFronts[next - 1];
    const KeyFront &after = keyFronts[next];
    std::array<Point, anchors> points;
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = Between(before.points[i], after.points[i], slot - before.slot, after.slot - before.slot);
    return points;
}

// The place nearest to centre that passes test, or centre when none does for a long way.
template <typename Test>
Point NearestPlace(Point centre, const Test &test) {
    constexpr int reach = 40;
    Point best = centre;
    int bestDistance = 2 * reach * reach + 1;
    for (int y = centre.y - reach; y <= centre.y + reach; ++y)
        for (int x = centre.x - reach; x <= centre.x + reach; ++x) {
            const int distance = SquaredDistance({x, y}, centre);
            if (distance < bestDistance && test(Point{x, y})) {
                best = {x, y};
                bestDistance = distance;
            }
        }
    return best;
}

// Moves place a little, so that the front bends.
Point Bent(Point place) {
    return {place.x + FractalNoise(place.x, place.y, 20, 2, 901) * 7 / 1024,
            place.y + FractalNoise(place.x, place.y, 20, 2, 911) * 7 / 1024};
}

Frontline FrontIn(const Theatre &theatre, int slot) {
    // The end marker and the empty rows behind it, as the game's file holds them.
    constexpr FrontlinePoint marker{159, 1759, 0};
    constexpr FrontlinePoint empty{160, 1760, 0};
    const int count = 8 + slot * 21 / static_cast<int>(frontlineTotal - 1);
    const std::array<Point, anchors> points = AnchorsIn(slot);
    const auto isLand = [&](Point place) { return theatre.IsLand(place); };
    const auto isCoast = [&](Point place) { return theatre.IsCoast(place); };
    Frontline front;
    front.points.fill(empty);
    for (int i = 0; i < count; ++i) {
        const int along = i * (anchors - 1);
        const auto leg = static_cast<std::size_t>(std::min(along / (count - 1), anchors - 2));
        const Point place =
            Between(points[leg], points[leg + 1], along - static_cast<int>(leg) * (count - 1), count - 1);
        const bool end = i == 0 || i == count - 1;
        const Point found = end ? NearestPlace(place, isCoast) : NearestPlace(Bent(place), isLand);
        const bool shown = end || i % 3 != 2;
        front.points[static_cast<std::size_t>(i)] = {ToInt16(found.x), ToInt16(found.y),
                                                     shown ? flagSet : std::uint16_t{0}};
    }
    front.points[static_cast<std::size_t>(count)] = marker;
    return front;
}

}  // namespace

void FillFrontlines(const Theatre &theatre, Campaign &campaign) {
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot)
        campaign.FrontlineTable[slot] = FrontIn(theatre, static_cast<int>(slot));
}

}  // namespace vtr
