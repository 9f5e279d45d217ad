#include <gtest/gtest.h>

#include <random>

#include "Canvas.h"
#include "Errors.h"

namespace vtr {
namespace {

constexpr std::uint32_t black = 0xFF000000;
constexpr std::uint32_t red = 0xFFFF0000;

Picture Blank(int width, int height, std::uint32_t colour = black) {
    return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), colour)};
}

std::uint32_t At(const Picture &picture, int x, int y) {
    return picture.pixels.at(static_cast<std::size_t>(y * picture.width + x));
}

/// The rows of a picture as text, with '#' for pixels that are not black.
std::string Drawing(const Picture &picture) {
    std::string text;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            text += At(picture, x, y) == black ? '.' : '#';
        text += '\n';
    }
    return text;
}

__extension__ using Wide = __int128;

/// Whether pixel (i, j)'s middle lies within width / 2 of the line from a to b, straight from the definition.
bool IsCovered(int i, int j, CanvasPoint a, CanvasPoint b, int width) {
    const Wide px = 2 * i + 1 - Wide{a.x};
    const Wide py = 2 * j + 1 - Wide{a.y};
    const Wide dx = Wide{b.x} - a.x;
    const Wide dy = Wide{b.y} - a.y;
    const Wide squaredRadius = Wide{width} * width;
    const Wide along = px * dx + py * dy;
    const Wide squaredLength = dx * dx + dy * dy;
    if (along <= 0)
        return px * px + py * py <= squaredRadius;
    if (along >= squaredLength)
        return (px - dx) * (px - dx) + (py - dy) * (py - dy) <= squaredRadius;
    const Wide cross = px * dy - py * dx;
    return cross * cross <= squaredRadius * squaredLength;
}

Picture WideLineByDefinition(int width, int height, CanvasPoint a, CanvasPoint b, int penWidth) {
    Picture picture = Blank(width, height);
    for (int j = 0; j < height; ++j)
        for (int i = 0; i < width; ++i)
            if (IsCovered(i, j, a, b, penWidth))
                picture.pixels[static_cast<std::size_t>(j * width + i)] = red;
    return picture;
}

/// The pixel of each column (or row) nearest to the line, found by trying all of them.
Picture ThinLineByDefinition(int width, int height, int x1, int y1, int x2, int y2) {
    Picture picture = Blank(width, height);
    const bool steep = std::abs(y2 - y1) > std::abs(x2 - x1);
    const std::int64_t from = steep ? y1 : x1;
    const std::int64_t to = steep ? y2 : x2;
    const std::int64_t acrossFrom = steep ? x1 : y1;
    const std::int64_t acrossTo = steep ? x2 : y2;
    const int steps = steep ? height : width;
    const int choices = steep ? width : height;
    for (int step = 0; step < steps; ++step) {
        if (step < std::min(from, to) || step > std::max(from, to))
            continue;
        if (from == to) {
            if (acrossFrom >= 0 && acrossFrom < choices)
                picture.pixels[static_cast<std::size_t>(acrossFrom * width + step)] = red;
            continue;
        }
        // Distances in units of 1 / (to - from). The nearest row (column) may be outside the canvas.
        std::int64_t best = INT64_MAX;
        int nearest = -1;
        for (int choice = -1; choice <= choices; ++choice) {
            const std::int64_t distance =
                std::abs((choice - acrossFrom) * (to - from) - (acrossTo - acrossFrom) * (step - from));
            if (distance <= best) {
                best = distance;
                nearest = choice;
            }
        }
        if (nearest >= 0 && nearest < choices)
            picture
                .pixels[static_cast<std::size_t>(steep ? step * width + nearest : nearest * width + step)] =
                red;
    }
    return picture;
}

TEST(CanvasLine, OneWideRunsFromPixelToPixelBothEndsIncluded) {
    Picture picture = Blank(8, 4);
    Canvas(picture).Line({3, 3}, {13, 5}, 1, red);
    EXPECT_EQ(Drawing(picture),
              "........\n"
              ".###....\n"
              "....###.\n"
              "........\n");
}

TEST(CanvasLine, OneWideFromAPixelToItselfIsThatPixel) {
    Picture picture = Blank(3, 3);
    Canvas(picture).Line({3, 3}, {3, 3}, 1, red);
    EXPECT_EQ(Drawing(picture), "...\n.#.\n...\n");
}

TEST(CanvasLine, OneWideAgreesWithItsDefinitionInEveryDirectionAlsoFromOutside) {
    std::mt19937 random(7);
    const auto within = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    int touched = 0;
    for (int round = 0; round < 6000; ++round) {
        const int reach = round % 3 == 0 ? 4 : round % 3 == 1 ? 40 : 3000;
        const int x1 = within(-reach, 23 + reach);
        const int y1 = within(-reach, 16 + reach);
        const int x2 = within(-reach, 23 + reach);
        const int y2 = within(-reach, 16 + reach);
        Picture picture = Blank(24, 17);
        Canvas(picture).Line({2 * x1 + 1, 2 * y1 + 1}, {2 * x2 + 1, 2 * y2 + 1}, 1, red);
        ASSERT_EQ(Drawing(picture), Drawing(ThinLineByDefinition(24, 17, x1, y1, x2, y2)))
            << x1 << "," << y1 << " to " << x2 << "," << y2;
        touched += picture.pixels != Blank(24, 17).pixels ? 1 : 0;
    }
    EXPECT_GT(touched, 2000);
}

TEST(CanvasLine, ThreeWideIsThreeRowsWithRoundEnds) {
    Picture picture = Blank(9, 5);
    Canvas(picture).Line({5, 5}, {13, 5}, 3, red);
    EXPECT_EQ(Drawing(picture),
              ".........\n"
              ".#######.\n"
              ".#######.\n"
              ".#######.\n"
              ".........\n");
}

TEST(CanvasLine, FourWideOnPixelCornersIsFourRowsWithRoundEnds) {
    Picture picture = Blank(10, 6);
    Canvas(picture).Line({6, 6}, {14, 6}, 4, red);
    EXPECT_EQ(Drawing(picture),
              "..........\n"
              "..######..\n"
              ".########.\n"
              ".########.\n"
              "..######..\n"
              "..........\n");
}

TEST(CanvasLine, WideAgreesWithItsDefinitionForEveryWidthAndDirection) {
    std::mt19937 random(11);
    const auto within = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 6000; ++round) {
        const int width = round % 4 == 0 ? within(2, 100) : within(2, 9);
        const int reach = round % 3 == 0 ? 10 : 150;
        CanvasPoint from{within(-reach, 80 + reach), within(-reach, 60 + reach)};
        CanvasPoint to{within(-reach, 80 + reach), within(-reach, 60 + reach)};
        if (round % 7 == 0)
            to.x = from.x;
        if (round % 11 == 0)
            to.y = from.y;
        Picture picture = Blank(40, 30);
        Canvas(picture).Line(from, to, width, red);
        ASSERT_EQ(Drawing(picture), Drawing(WideLineByDefinition(40, 30, from, to, width)))
            << from.x << "," << from.y << " to " << to.x << "," << to.y << " width " << width;
    }
}

TEST(CanvasLine, WideFromFarOutsideAgreesWithItsDefinition) {
    std::mt19937 random(13);
    const auto within = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 1500; ++round) {
        const CanvasPoint from{within(0, 80), within(0, 60)};
        const CanvasPoint to{within(-Canvas::farthest, Canvas::farthest),
                             within(-Canvas::farthest, Canvas::farthest)};
        const int width = round % 2 == 0 ? within(2, Canvas::widest) : within(2, 6);
        Picture picture = Blank(40, 30);
        Canvas(picture).Line(from, to, width, red);
        ASSERT_EQ(Drawing(picture), Drawing(WideLineByDefinition(40, 30, from, to, width)))
            << from.x << "," << from.y << " to " << to.x << "," << to.y << " width " << width;
    }
    const CanvasPoint corner{-Canvas::farthest, -Canvas::farthest};
    const CanvasPoint opposite{Canvas::farthest, Canvas::farthest};
    Picture picture = Blank(40, 30);
    Canvas(picture).Line(corner, opposite, Canvas::widest, red);
    EXPECT_EQ(Drawing(picture), Drawing(WideLineByDefinition(40, 30, corner, opposite, Canvas::widest)));
}

TEST(CanvasLine, IsTheSameInBothDirections) {
    for (const int width : {1, 2, 3, 10}) {
        Picture there = Blank(30, 20);
        Picture back = Blank(30, 20);
        Canvas(there).Line({5, 7}, {50, 30}, width, red);
        Canvas(back).Line({50, 30}, {5, 7}, width, red);
        EXPECT_EQ(Drawing(there), Drawing(back)) << width;
    }
}

TEST(CanvasLine, BeyondTheCanvasLimitsIsAnOverflow) {
    Picture picture = Blank(4, 4);
    Canvas canvas(picture);
    EXPECT_THROW(canvas.Line({Canvas::farthest + 1, 0}, {0, 0}, 2, red), Error);
    EXPECT_THROW(canvas.Line({0, 0}, {0, -Canvas::farthest - 1}, 1, red), Error);
    EXPECT_THROW(canvas.Line({0, 0}, {0, 0}, Canvas::widest + 1, red), Error);
    EXPECT_THROW(canvas.Circle({0, 0}, -1, 1, red), Error);
    EXPECT_EQ(picture.pixels, Blank(4, 4).pixels);
}

TEST(CanvasCircle, OfRadius4OneWideHasNoGapsAndIsSymmetric) {
    Picture picture = Blank(11, 11);
    Canvas(picture).Circle({11, 11}, 4, 1, red);
    EXPECT_EQ(Drawing(picture),
              "...........\n"
              "...#####...\n"
              "..##...##..\n"
              ".##.....##.\n"
              ".#.......#.\n"
              ".#.......#.\n"
              ".#.......#.\n"
              ".##.....##.\n"
              "..##...##..\n"
              "...#####...\n"
              "...........\n");
}

TEST(CanvasCircle, AgreesWithItsDefinitionForEveryRadiusAndPen) {
    std::mt19937 random(17);
    const auto within = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 3000; ++round) {
        const int radius = round % 3 == 0 ? within(0, 400) : within(0, 30);
        const int width = round % 5 == 0 ? within(1, 100) : within(1, 4);
        const int reach = radius * 2;
        const CanvasPoint centre{within(-reach, 80 + reach), within(-reach, 60 + reach)};
        Picture picture = Blank(40, 30);
        Canvas(picture).Circle(centre, radius, width, red);
        Picture expected = Blank(40, 30);
        for (int j = 0; j < 30; ++j)
            for (int i = 0; i < 40; ++i) {
                const std::int64_t x = 2 * i + 1 - centre.x;
                const std::int64_t y = 2 * j + 1 - centre.y;
                const std::int64_t inner = std::max(2 * radius - width, 0);
                const std::int64_t outer = 2 * radius + width;
                if (x * x + y * y >= inner * inner && x * x + y * y <= outer * outer)
                    expected.pixels[static_cast<std::size_t>(j * 40 + i)] = red;
            }
        ASSERT_EQ(Drawing(picture), Drawing(expected))
            << "radius " << radius << " width " << width << " at " << centre.x << "," << centre.y;
    }
}

Picture Chequered(int width, int height) {
    Picture picture = Blank(width, height);
    for (int i = 0; i < width * height; ++i)
        picture.pixels[static_cast<std::size_t>(i)] = 0xFF000100U + static_cast<std::uint32_t>(i);
    return picture;
}

TEST(CanvasStretch, ShowsEachSourcePixelAsASquareAndBlackWhereThereIsNone) {
    for (const auto &[sourceWidth, sourceHeight] : {std::pair{40, 20}, {9, 30}, {100, 5}, {1, 1}}) {
        const Picture source = Chequered(sourceWidth, sourceHeight);
        for (const int zoom : {1, 2, 3, 4, 10, 100})
            for (const int left : {0, 1, 5, 8, 39, 500, -3})
                for (const int top : {0, 2, 19, 500, -2}) {
                    Picture picture = Blank(41, 23, red);
                    Canvas(picture).Stretch(source, left, top, zoom);
                    for (int y = 0; y < 23; ++y)
                        for (int x = 0; x < 41; ++x) {
                            const int sx = left + x / zoom;
                            const int sy = top + y / zoom;
                            const bool inside = sx >= 0 && sx < sourceWidth && sy >= 0 && sy < sourceHeight;
                            ASSERT_EQ(At(picture, x, y), inside ? At(source, sx, sy) : black)
                                << x << "," << y << " zoom " << zoom << " from " << left << "," << top;
                        }
                }
    }
}

TEST(CanvasStretch, OfNoPictureIsBlack) {
    Picture picture = Blank(5, 3, red);
    Canvas(picture).Stretch({}, 0, 0, 1);
    EXPECT_EQ(picture.pixels, Blank(5, 3).pixels);
}

}  // namespace
}  // namespace vtr
