#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "MapScene.h"

// Renew the pictures with:
// VTR_RENEW_GOLDEN=1 build/release/tests/mapview_tests --gtest_filter='*GoldenMap*'

namespace vtr {
namespace {

constexpr int cropWidth = 240;
constexpr int cropHeight = 120;

/// The top left part of the surface as a binary PPM file.
std::string Ppm(const MapScene &scene) {
    std::string bytes = "P6\n" + std::to_string(cropWidth) + " " + std::to_string(cropHeight) + "\n255\n";
    for (int y = 0; y < cropHeight; ++y)
        for (int x = 0; x < cropWidth; ++x)
            for (const int shift : {16, 8, 0})
                bytes += static_cast<char>(scene.At(x, y) >> shift & 0xFF);
    return bytes;
}

/// A few items of every layer around the map pixels (22, 11), so that each zoom shows some.
void PlaceItems(MapScene &scene) {
    scene.SetFrontline(0, {{2, 16}, {15, 13}, {23, 10}, {30, 14}, {61, 3}, {200, 60}, {600, 250}});
    const std::array<std::array<int, 4>, 6> lines{{{5, 2, 90, 70},
                                                   {24, 9, 22, 12},
                                                   {22, 12, 3, 40},
                                                   {-300, 90, 500, 20},
                                                   {70, 5, 70, 100},
                                                   {23, 11, 23, 11}}};
    for (std::size_t i = 0; i < lines.size(); ++i)
        scene.campaign->RailwayTable[400 + i] = {.x1 = static_cast<std::int16_t>(lines[i][0]),
                                                 .x2 = static_cast<std::int16_t>(lines[i][2]),
                                                 .y1 = static_cast<std::int16_t>(lines[i][1]),
                                                 .y2 = static_cast<std::int16_t>(lines[i][3])};
    scene.SetPath(scene.campaign->RoadWaypointTable[7], {{21, 10}, {26, 13}, {40, 12}, {110, 100}});
    scene.SetPath(scene.campaign->RailWaypointTable[90], {{22, 14}, {22, 11}, {35, 25}, {10, 60}});
    scene.SetTarget(0, 22, 11);
    scene.SetTarget(1, 25, 14, true);
    scene.SetTarget(2, 50, 30);
    scene.SetTarget(3, 120, 50, true);
    scene.SetTarget(4, 0, 0);
    for (int y = 0; y < 320; ++y)
        for (int x = 0; x < 640; ++x)
            if ((x / 4 + y / 4) % 2 != 0)
                scene.worldMap.pixels[static_cast<std::size_t>(y * 640 + x)] = 0xFF384830;
}

class GoldenMap : public testing::TestWithParam<int> {};

TEST_P(GoldenMap, IsDrawnToThePixel) {
    MapScene scene;
    PlaceItems(scene);
    MapDisplay &display = scene.display;
    display.mnu_v_targets = display.mnu_v_frontlines = display.mnu_v_railways = true;
    display.mnu_v_roadint = display.mnu_v_railint = true;
    display.mnu_e_frontline = true;
    display.upd_frnt_pointnum = 2;
    display.upd_view_railway = 401;
    scene.view.TargetFlashPhase = true;
    const int zoom = GetParam();
    scene.Show(zoom, zoom < 10 ? 0 : 21, zoom < 10 ? 0 : 10);
    scene.Redraw();

    const std::string path = VTR_GOLDEN_DIR "/map" + std::to_string(zoom) + "00.ppm";
    const std::string drawn = Ppm(scene);
    if (std::getenv("VTR_RENEW_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << drawn;
        GTEST_SKIP() << "renewed " << path;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path;
    const std::string golden{std::istreambuf_iterator<char>(file), {}};
    if (drawn == golden)
        return;
    const std::string kept = testing::TempDir() + "map" + std::to_string(zoom) + "00.ppm";
    std::ofstream(kept, std::ios::binary) << drawn;
    FAIL() << "differs from " << path << ", drawn as " << kept;
}

INSTANTIATE_TEST_SUITE_P(AtFactor, GoldenMap, testing::Values(1, 2, 3, 4, 10, 100),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace vtr
