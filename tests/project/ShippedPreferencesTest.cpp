#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "../../data/ColourVision.h"
#include "../../data/MapGrounds.h"
#include "Preferences.h"

namespace vtr {
namespace {

/// For the eyes that see it least.
double LeastDifference(std::int32_t a, std::int32_t b) {
    double least = 1000;
    for (const ColourMatrix &eye : eyes)
        least = std::min(least, Difference(a, b, eye));
    return least;
}

std::vector<std::int32_t> LayerColours() {
    const Preferences shipped = ShippedPreferences();
    return {shipped.FrontlineColour, shipped.RailwayColour, shipped.RoadIntColour,
            shipped.RailIntColour,   shipped.TargetColour,  shipped.AirfieldColour};
}

std::filesystem::path DataFile(const char *name) {
    return std::filesystem::path(VTR_GOLDEN_DIR).parent_path().parent_path() / "data" / name;
}

TEST(ShippedPreferences, AreByteForByteThoseOfTheShippedFile) {
    std::ifstream file(DataFile("prefs.cfg"), std::ios::binary);
    ASSERT_TRUE(file.is_open());
    const Bytes shipped{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(EncodePreferences(ShippedPreferences()), shipped);
    EXPECT_EQ(DecodePreferences(shipped).preferences, ShippedPreferences());
    EXPECT_EQ(ShippedPreferences().FlashTarget, 1);
}

TEST(ShippedPreferences, TheDifferenceOfColoursIsTheOneOfTheBooks) {
    EXPECT_NEAR(Difference(0, 0xFFFFFF, eyes[0]), 100, 0.01);
    EXPECT_NEAR(Lab(0x0000FF, eyes[0])[0], 53.24, 0.01);  // pure red
    EXPECT_NEAR(Lab(0x0000FF, eyes[0])[1], 80.09, 0.01);
    EXPECT_NEAR(Lab(0x0000FF, eyes[0])[2], 67.20, 0.01);
    // Red and dark green of like lightness: far apart for most, alike without the middle cones.
    EXPECT_GT(Difference(0x0000A0, 0x005A50, eyes[0]), 50);
    EXPECT_LT(Difference(0x0000A0, 0x005A50, eyes[2]), 25);
}

TEST(ShippedPreferences, TheLuminanceContrastIsTheOneOfTheBooks) {
    for (const ColourMatrix &eye : eyes)
        EXPECT_NEAR(LuminanceContrast(0, 0xFFFFFF, eye), 21, 0.01);
    EXPECT_NEAR(LuminanceContrast(0xFFFFFF, 0x777777, eyes[0]), 4.48, 0.01);
    EXPECT_NEAR(LuminanceContrast(0x0000FF, 0xFFFFFF, eyes[0]), 4.00, 0.01);  // pure red
    EXPECT_GT(LuminanceContrast(0x0000FF, 0xFFFFFF, eyes[1]), 6);             // is darker without long cones
}

// About 2.3 is the least difference that is noticed at all. Lines one pixel wide need many times that.
TEST(ShippedPreferences, AllLayersAndTheYellowHighlightCanBeToldApartAlsoByColourBlindUsers) {
    std::vector<std::int32_t> colours = LayerColours();
    colours.push_back(65535);
    for (std::size_t a = 0; a < colours.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) {
            EXPECT_GT(LeastDifference(colours[a], colours[b]), 29) << a << " and " << b;
            EXPECT_GT(Difference(colours[a], colours[b], eyes[0]), 55) << a << " and " << b;
        }
    }
}

TEST(ShippedPreferences, AllLayersStandOutFromTheKindsOfGroundAlsoForColourBlindUsers) {
    const auto rgb = [](int red, int green, int blue) { return red + 256 * green + 65536 * blue; };
    const std::vector<std::int32_t> ground{
        rgb(0xA2, 0xB2, 0x5E), rgb(0x78, 0xA0, 0x4C), rgb(0x24, 0x50, 0x8C),   // fields, grass, sea
        rgb(0x2C, 0x5C, 0x30), rgb(0x86, 0x74, 0x64), rgb(0x4A, 0x86, 0xC4),   // forest, mountains, rivers
        rgb(0xCE, 0xC0, 0x8C), rgb(0xA0, 0x40, 0x38), rgb(0xE4, 0xDE, 0xD0)};  // coast, cities, roads
    for (const std::int32_t colour : LayerColours())
        for (const std::int32_t kind : ground)
            EXPECT_GT(LeastDifference(colour, kind), 19) << colour << " on " << kind;
}

TEST(ShippedPreferences, AllLayersStandOutFromTheMapsThatTheProgramMakesAlsoForColourBlindUsers) {
    for (const Ground &ground : MapGrounds(DataFile("terrain-colours.txt")))
        for (const std::int32_t colour : LayerColours())
            for (const ColourMatrix &eye : eyes)
                EXPECT_GT(DifferenceFromMost(ground.colours, colour, eye), 17)
                    << colour << " on " << ground.name;
}

TEST(ShippedPreferences, AirfieldsAndRoadInterdictionDifferInLightnessFromTheSamplesLandAndSea) {
    const Preferences shipped = ShippedPreferences();
    const std::vector<Ground> grounds = MapGrounds(DataFile("terrain-colours.txt"));
    ASSERT_EQ(grounds.size(), 3);
    for (const Ground &ground : {grounds[1], grounds[2]})
        for (const std::int32_t colour : {shipped.RoadIntColour, shipped.AirfieldColour})
            for (const ColourMatrix &eye : eyes)
                EXPECT_GT(ContrastToMost(ground.colours, colour, eye), 1.9)
                    << colour << " on " << ground.name;
    EXPECT_GT(LeastDifference(shipped.RoadIntColour, shipped.AirfieldColour), 60);
}

}  // namespace
}  // namespace vtr
