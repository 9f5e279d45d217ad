#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <random>

#include "DialogDriver.h"
#include "Overview.h"

namespace vtr {
namespace {

/// A picture of blocks of 4 x 4 pixels, each of one colour by chance.
Picture Blocks(int width, int height) {
    std::mt19937 random(11);
    Picture picture{
        width, height,
        std::vector<std::uint32_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
    std::vector<std::uint32_t> colours(static_cast<std::size_t>(width / 4 + 1));
    for (int y = 0; y < height; ++y) {
        if (y % 4 == 0)
            for (std::uint32_t &colour : colours)
                colour = 0xFF000000U | (random() & 0xFFFFFFU);
        for (int x = 0; x < width; ++x)
            picture.pixels[static_cast<std::size_t>(y * width + x)] =
                colours[static_cast<std::size_t>(x / 4)];
    }
    return picture;
}

QImage Shown(Overview &overview) {
    return overview.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Each pixel of the overview is the block of the map at four times its place, and black where there is none.
void ExpectQuarterOf(const QImage &shown, const Picture &map) {
    ASSERT_EQ(shown.size(), QSize(160, 80));
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 160; ++x) {
            const bool within = 4 * x < map.width && 4 * y < map.height;
            const std::uint32_t expected =
                within ? map.pixels[static_cast<std::size_t>(4 * y * map.width + 4 * x)] : 0xFF000000U;
            ASSERT_EQ(shown.pixel(x, y), expected) << x << ", " << y;
        }
    }
}

TEST(Overview, Is160By80AndBlackWithoutAPicture) {
    Overview overview(nullptr);
    EXPECT_EQ(overview.objectName(), "Img_SmallMap");
    EXPECT_EQ(overview.minimumSize(), QSize(160, 80));
    EXPECT_EQ(overview.maximumSize(), QSize(160, 80));
    ExpectQuarterOf(Shown(overview), {0, 0, {}});
}

TEST(Overview, TellsAssistiveToolsThatItIsAPicture) {
    Overview overview(nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&overview)->role(), QAccessible::Graphic);
}

TEST(Overview, ShowsEachFourByFourPixelsOfTheMapAsOne) {
    Overview overview(nullptr);
    const Picture map = Blocks(640, 320);
    overview.ShowPicture(map);
    ExpectQuarterOf(Shown(overview), map);
}

TEST(Overview, IsBlackWhereASmallPictureHasNoPixels) {
    Overview overview(nullptr);
    const Picture map = Blocks(320, 200);
    overview.ShowPicture(map);
    ExpectQuarterOf(Shown(overview), map);
}

TEST(Overview, CutsALargePictureOffAtTheSizeOfTheMap) {
    Overview overview(nullptr);
    const Picture map = Blocks(1280, 960);
    overview.ShowPicture(map);
    ExpectQuarterOf(Shown(overview), map);
}

TEST(Overview, ANewPictureReplacesTheOneBefore) {
    Overview overview(nullptr);
    overview.ShowPicture(Blocks(640, 320));
    const Picture map = Blocks(40, 4);
    overview.ShowPicture(map);
    ExpectQuarterOf(Shown(overview), map);
}

TEST(Overview, TheRectangleIsAFrameOverTheMapThatLetsItsMiddleThrough) {
    Overview overview(nullptr);
    const Picture map = Blocks(640, 320);
    overview.ShowPicture(map);
    auto &area = Find<QWidget>(overview, QStringLiteral("shp_area"));
    EXPECT_FALSE(area.isVisibleTo(&overview));
    overview.ShowArea({.Visible = true, .Left = 40, .Top = 20, .Width = 80, .Height = 40});
    EXPECT_TRUE(area.isVisibleTo(&overview));
    EXPECT_EQ(area.geometry(), QRect(40, 20, 80, 40));
    const QImage shown = Shown(overview);
    for (const QPoint within : {QPoint(41, 21), QPoint(80, 40), QPoint(118, 58)})
        EXPECT_EQ(shown.pixel(within),
                  map.pixels[static_cast<std::size_t>(4 * within.y() * 640 + 4 * within.x())]);
    for (int x = 40; x < 120; ++x)
        for (const int y : {20, 59})
            EXPECT_TRUE(shown.pixel(x, y) == 0xFF000000U || shown.pixel(x, y) == 0xFFFFFFFFU)
                << x << ", " << y;
    overview.ShowArea({.Visible = false, .Left = 0, .Top = 0, .Width = 160, .Height = 80});
    ExpectQuarterOf(Shown(overview), map);
}

TEST(Overview, ARectangleThatIsTooSmallToSeeHasAFrameAroundIt) {
    Overview overview(nullptr);
    const auto &area = Find<QWidget>(overview, QStringLiteral("shp_area"));
    const auto &around = Find<QWidget>(overview, QStringLiteral("shp_around"));
    EXPECT_FALSE(around.isVisibleTo(&overview));
    const auto show = [&](std::int16_t left, std::int16_t top, std::int16_t width, std::int16_t height) {
        overview.ShowArea({.Visible = true, .Left = left, .Top = top, .Width = width, .Height = height});
        EXPECT_EQ(area.geometry(), QRect(left, top, width, height));
        EXPECT_TRUE(area.isVisibleTo(&overview));
        return around.isVisibleTo(&overview) ? around.geometry() : QRect();
    };
    EXPECT_EQ(show(40, 20, 7, 7), QRect());
    EXPECT_EQ(show(40, 20, 13, 6), QRect(37, 17, 19, 12));
    EXPECT_EQ(show(40, 20, 6, 7), QRect(37, 17, 12, 13));
    EXPECT_EQ(show(80, 40, 2, 1), QRect(77, 37, 8, 7));
    EXPECT_EQ(show(0, 0, 2, 1), QRect(0, 0, 5, 4)) << "closed at the borders too";
    EXPECT_EQ(show(158, 79, 2, 1), QRect(155, 76, 5, 4));
    overview.ShowArea({.Visible = false, .Left = 80, .Top = 40, .Width = 2, .Height = 1});
    EXPECT_FALSE(around.isVisibleTo(&overview));
}

TEST(Overview, AClickOnTheRectangleIsAClickOnTheOverview) {
    Overview overview(nullptr);
    const QSignalSpy clicks(&overview, &Overview::Clicked);
    overview.ShowArea({.Visible = true, .Left = 0, .Top = 0, .Width = 160, .Height = 80});
    overview.show();
    QTest::mouseClick(overview.window()->windowHandle(), Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(clicks.count(), 1);
}

}  // namespace
}  // namespace vtr
