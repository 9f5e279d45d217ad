#include <gmock/gmock.h>

#include <limits>

#include "PictureRotate.h"
#include "PlainRotation.h"

namespace vtr {
namespace {

using testing::ElementsAre;

constexpr double north = 0 * 3.14159265359;
constexpr double east = -0.5 * 3.14159265359;
constexpr double south = -1.0 * 3.14159265359;
constexpr double west = 0.5 * 3.14159265359;

/// A picture whose pixels all differ.
Picture Numbered(int width, int height, std::uint32_t first) {
    Picture picture{width, height, {}};
    for (int i = 0; i < width * height; ++i)
        picture.pixels.push_back(first + static_cast<std::uint32_t>(i));
    return picture;
}

struct Size {
    int width;
    int height;
};

const Size turnedSizes[] = {{1, 1},   {2, 2},     {3, 3},     {4, 4},    {5, 5},   {8, 3},
                            {3, 8},   {16, 16},   {17, 9},    {9, 17},   {64, 63}, {101, 7},
                            {128, 1}, {256, 256}, {301, 199}, {640, 480}};

void ExpectTurnsPlainly(Size source, Size destination, double angle) {
    const Picture from = Numbered(source.width, source.height, 0xFF000000);
    Picture turned = Numbered(destination.width, destination.height, 0xFF800000);
    Picture expected = turned;
    RotatePlainly(from, expected, angle);
    RotatePicture(from, turned, angle);
    EXPECT_EQ(turned.pixels, expected.pixels)
        << source.width << " x " << source.height << " into " << destination.width << " x "
        << destination.height << " by " << angle;
}

TEST(PictureRotate, QuarterTurnsAreThoseOfThePlainArithmetic) {
    for (const Size size : turnedSizes)
        for (const double angle : {north, east, south, west, -south})
            ExpectTurnsPlainly(size, size, angle);
}

TEST(PictureRotate, APictureOfAnotherSizeThanTheDestinationTurnsAboutBothCentres) {
    for (const double angle : {north, east, south, west}) {
        ExpectTurnsPlainly({16, 12}, {40, 21}, angle);
        ExpectTurnsPlainly({40, 21}, {16, 12}, angle);
        ExpectTurnsPlainly({7, 50}, {50, 7}, angle);
    }
}

TEST(PictureRotate, OtherAnglesAreThoseOfThePlainArithmetic) {
    for (const Size size : {Size{1, 1}, Size{5, 5}, Size{17, 9}, Size{64, 63}})
        for (const double angle : {0.1, -0.7, 1.0, 2.5, 3.14159265359 / 4, 1.5707, 100.0})
            ExpectTurnsPlainly(size, size, angle);
}

TEST(PictureRotate, TheSourceOfAQuarterTurnIsTheExactOneAtEveryRadiusUpToThatOfATallestPicture) {
    // The shortcut needs this. It is tried where rounding the radius comes closest to shifting a pixel.
    int nearest = 0;
    for (int a = 0; a < 16384; a += 13) {
        for (int b = 0; b < 16384; b += 29) {
            const double radius = std::sqrt(double(a) * a + double(b) * b);
            if (std::abs(radius - std::floor(radius) - 0.5) > 0.001)
                continue;
            ++nearest;
            const double phi = a == 0 ? 3.14159265359 / 2 : std::atan(double(b) / a);
            const double r = std::nearbyint(radius);
            for (const double angle : {east, south, west}) {
                const double cosine = angle == south ? -1 : 0;
                const double sine = angle == east ? -1 : angle == west ? 1 : 0;
                ASSERT_EQ(std::nearbyint(r * std::cos(phi + angle)), a * cosine - b * sine) << a << ' ' << b;
                ASSERT_EQ(std::nearbyint(r * std::sin(phi + angle)), a * sine + b * cosine) << a << ' ' << b;
            }
        }
    }
    EXPECT_GT(nearest, 1000);
}

TEST(PictureRotate, EastBringsTheRightHandSideToTheBottom) {
    // 4 x 4 pixels around (2, 2): the pixel right of the centre goes below it, the pixel below goes left.
    const Picture source = Numbered(4, 4, 0);
    Picture turned = source;
    RotatePicture(source, turned, east);
    EXPECT_THAT(turned.pixels, ElementsAre(0, 1, 2, 3,    //
                                           4, 13, 9, 5,   //
                                           8, 14, 10, 6,  //
                                           12, 15, 11, 7));
}

TEST(PictureRotate, ColumnZeroAndRowZeroKeepTheUnturnedPicture) {
    const Picture source = Numbered(8, 8, 0xFF000000);
    Picture turned = source;
    RotatePicture(source, turned, west);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(turned.pixels[i], source.pixels[i]);
        EXPECT_EQ(turned.pixels[8 * i], source.pixels[8 * i]);
    }
    EXPECT_NE(turned.pixels[8 + 1], source.pixels[8 + 1]);
}

TEST(PictureRotate, WhatTurnsInFromOutsideIsNotWritten) {
    const Picture wide = Numbered(9, 3, 1);
    Picture turned{9, 3, std::vector<std::uint32_t>(27, 0)};
    RotatePicture(wide, turned, west);
    // Only the middle three columns have a source within the three rows.
    EXPECT_THAT(turned.pixels, ElementsAre(0, 0, 0, 24 - 18, 24 - 9, 24, 0, 0, 0,  //
                                           0, 0, 0, 5, 14, 23, 0, 0, 0,            //
                                           0, 0, 0, 4, 13, 22, 0, 0, 0));
}

TEST(PictureRotate, WhitePixelsAreTurnedLikeOthers) {
    Picture source{8, 8, std::vector<std::uint32_t>(64, 0xFFFFFFFF)};
    Picture turned{8, 8, std::vector<std::uint32_t>(64, 0xFF000000)};
    RotatePicture(source, turned, south);
    EXPECT_EQ(turned.pixels[8 * 4 + 4], 0xFFFFFFFF);
    EXPECT_EQ(turned.pixels[8 * 7 + 7], 0xFFFFFFFF);
}

TEST(PictureRotate, APictureOfOnePixelStaysAsItIs) {
    const Picture source{1, 1, {5}};
    Picture turned{1, 1, {9}};
    RotatePicture(source, turned, south);
    EXPECT_THAT(turned.pixels, ElementsAre(9));
}

TEST(PictureRotate, AnEmptyPictureWritesNothing) {
    Picture turned = Numbered(4, 4, 0);
    RotatePicture({}, turned, west);
    EXPECT_EQ(turned.pixels, Numbered(4, 4, 0).pixels);
    Picture none;
    RotatePicture(turned, none, west);
    EXPECT_TRUE(none.Empty());
}

TEST(PictureRotate, AfterEachColumnThePixelsOfThatColumnAreThere) {
    const Picture source = Numbered(8, 6, 100);
    for (const double angle : {west, 1.0}) {
        Picture turned{8, 6, std::vector<std::uint32_t>(48, 0)};
        std::vector<int> written;
        RotatePicture(source, turned, angle, [&] {
            int count = 0;
            for (const std::uint32_t pixel : turned.pixels)
                count += pixel != 0 ? 1 : 0;
            written.push_back(count);
        });
        ASSERT_EQ(written.size(), 4U);
        EXPECT_GE(written[0], 9);
        EXPECT_LT(written[0], written[1]);
        EXPECT_LT(written[1], written[2]);
    }
}

}  // namespace
}  // namespace vtr
