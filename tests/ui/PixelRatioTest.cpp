#include <gtest/gtest.h>

#include <QImage>
#include <random>

#include "MapSurface.h"

namespace vtr {
namespace {

/// The map as a display shows it that has ratio times ratio pixels for each of ours.
QImage Shown(MapSurface &map, int ratio) {
    QImage image(640 * ratio, 320 * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::green);
    map.render(&image);
    return image;
}

TEST(PixelRatio, EveryPixelOfTheSurfaceIsEnlargedToAWholeBlockAndNeverBlurred) {
    MapSurface map(nullptr);
    std::mt19937 random(7);
    for (std::uint32_t &pixel : map.Surface().pixels)
        pixel = 0xFF000000U | (random() & 0xFFFFFFU);
    for (const int ratio : {1, 2, 3}) {
        const QImage shown = Shown(map, ratio);
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                ASSERT_EQ(shown.pixel(x, y),
                          map.Surface().pixels[static_cast<std::size_t>(y / ratio * 640 + x / ratio)])
                    << x << ", " << y << " at a ratio of " << ratio;
    }
}

}  // namespace
}  // namespace vtr
