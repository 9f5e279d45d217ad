#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "Preferences.h"

namespace vtr {
namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

Vector Times(const Matrix &matrix, const Vector &vector) {
    Vector product{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            product[i] += matrix[i][j] * vector[j];
    return product;
}

// Who sees: everybody, and those who lack one kind of cone. G. M. Machado, M. M. Oliveira, L. A. F.
// Fernandes, "A Physiologically-based Model for Simulation of Color Vision Deficiency", IEEE Transactions on
// Visualization and Computer Graphics 15 (6), 2009, severity 1.0; they act on linear RGB.
constexpr std::array<Matrix, 4> eyes{
    {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
     {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}}};

/// sRGB (IEC 61966-2-1) without its gamma, as those eyes see it, in CIE 1976 L*a*b* for the white of D65.
Vector Lab(std::int32_t colour, const Matrix &eye) {
    const auto linear = [](int part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    Vector rgb = Times(eye, {linear(colour & 255), linear(colour >> 8 & 255), linear(colour >> 16)});
    for (double &part : rgb)
        part = std::clamp(part, 0.0, 1.0);
    const Vector xyz = Times({{{0.4124564, 0.3575761, 0.1804375},
                               {0.2126729, 0.7151522, 0.0721750},
                               {0.0193339, 0.1191920, 0.9503041}}},
                             rgb);
    const auto f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
    const double y = f(xyz[1]);
    return {116 * y - 16, 500 * (f(xyz[0] / 0.95047) - y), 200 * (y - f(xyz[2] / 1.08883))};
}

double Difference(std::int32_t a, std::int32_t b, const Matrix &eye) {
    const Vector p = Lab(a, eye);
    const Vector q = Lab(b, eye);
    return std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
}

/// For the eyes that see it least.
double LeastDifference(std::int32_t a, std::int32_t b) {
    double least = 1000;
    for (const Matrix &eye : eyes)
        least = std::min(least, Difference(a, b, eye));
    return least;
}

std::vector<std::int32_t> LayerColours() {
    const Preferences shipped = ShippedPreferences();
    return {shipped.FrontlineColour, shipped.RailwayColour, shipped.RoadIntColour,
            shipped.RailIntColour,   shipped.TargetColour,  shipped.AirfieldColour};
}

TEST(ShippedPreferences, AreByteForByteThoseOfTheShippedFile) {
    const auto root = std::filesystem::path(VTR_GOLDEN_DIR).parent_path().parent_path();
    std::ifstream file(root / "data/prefs.cfg", std::ios::binary);
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

}  // namespace
}  // namespace vtr
