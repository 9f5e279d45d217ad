#include <algorithm>
#include <set>

#include "SharedSample.h"
#include "TerrainPainter.h"

namespace vtr {
namespace {

// The side of a tile's picture that shows at side of the map (0 north to 3 west) when the tile is turned.
int PictureSide(std::uint8_t tile, int side) {
    return (side - (tile >> 6) + 4) % 4;
}

std::uint8_t TileAt(int x, int y) {
    return Sample().terrain.at(static_cast<std::size_t>(y * 640 + x));
}

TEST(TerrainPainter, UsesTileTypesUpTo58AndMostOfThem) {
    std::set<int> types;
    for (const std::uint8_t tile : Sample().terrain)
        types.insert(tile & 63);
    EXPECT_LE(*types.rbegin(), 58);
    EXPECT_GE(types.size(), 50U);
}

TEST(TerrainPainter, TurnsStraightShoresSoThatTheirSeaLiesInTheSea) {
    constexpr std::array<std::pair<int, int>, 4> steps{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
    constexpr std::array seaInTheNorth{3, 5, 50, 57, 58};
    int shores = 0;
    for (int y = 1; y < 319; ++y)
        for (int x = 1; x < 639; ++x) {
            const std::uint8_t tile = TileAt(x, y);
            if (std::ranges::find(seaInTheNorth, tile & 63) == seaInTheNorth.end())
                continue;
            ++shores;
            for (int side = 0; side < 4; ++side) {
                const auto [dx, dy] = steps[static_cast<std::size_t>(side)];
                EXPECT_EQ(TileTypeAt(x + dx, y + dy) == waterType, PictureSide(tile, side) == 0)
                    << x << ", " << y;
            }
        }
    EXPECT_GT(shores, 500);
}

TEST(TerrainPainter, LeavesNoLandBesideTheSeaWithoutAShore) {
    constexpr std::array shoreTypes{3, 4, 5, 32, 33, 44, 50, 51, 52, 55, 57, 58};
    for (int y = 0; y < 320; ++y)
        for (int x = 0; x < 640; ++x) {
            const bool bySea = (x > 0 && TileTypeAt(x - 1, y) == waterType) ||
                               (x < 639 && TileTypeAt(x + 1, y) == waterType) ||
                               (y > 0 && TileTypeAt(x, y - 1) == waterType) ||
                               (y < 319 && TileTypeAt(x, y + 1) == waterType);
            if (TileTypeAt(x, y) != waterType && bySea) {
                EXPECT_NE(std::ranges::find(shoreTypes, TileTypeAt(x, y)), shoreTypes.end())
                    << x << ", " << y;
            }
        }
}

TEST(TerrainPainter, LetsRiversAndRoadsRunOnFromTileToTile) {
    // The sides through which the ways of straight, bent, forked, crossed and ending pictures run.
    const auto runs = [](std::uint8_t tile, int side, bool river) {
        const int at = PictureSide(tile, side);
        switch (tile & 63) {
            case 14:
            case 17:
            case 18:
            case 20:
            case 53:
            case 56:
                return river ? at % 2 == 0 : (tile & 63) == 53 && at % 2 == 1;
            case 15:
            case 19:
            case 16:
                return river && at < 2;
            case 54:
                return river && at != 2;
            case 43:
                return river && at == 0;
            case 34:
            case 40:
            case 45:
                return !river && at % 2 == 0;
            case 35:
                return !river && at < 2;
            case 37:
                return !river && at != 2;
            default:
                return false;
        }
    };
    const auto isRiver = [](int type) {
        return (type >= 14 && type <= 21) || type == 43 || type == 53 || type == 54 || type == 56;
    };
    const auto isRoad = [](int type) {
        return type == 34 || type == 35 || type == 37 || type == 40 || type == 45;
    };
    int joints = 0;
    for (int y = 0; y < 320; ++y)
        for (int x = 0; x < 639; ++x) {
            const std::uint8_t left = TileAt(x, y);
            const std::uint8_t right = TileAt(x + 1, y);
            if (isRiver(left & 63) && isRiver(right & 63)) {
                EXPECT_EQ(runs(left, 1, true), runs(right, 3, true)) << x << ", " << y;
                joints += runs(left, 1, true) ? 1 : 0;
            }
            if (isRoad(left & 63) && isRoad(right & 63)) {
                EXPECT_EQ(runs(left, 1, false), runs(right, 3, false)) << x << ", " << y;
                joints += runs(left, 1, false) ? 1 : 0;
            }
        }
    EXPECT_GT(joints, 1500);
}

}  // namespace
}  // namespace vtr
