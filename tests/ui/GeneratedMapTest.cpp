#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>
#include <random>

#include "MapGeneration.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

/// A map generated with the map.dat beside the program, opened by Qt's own reader.
class GeneratedMap : public ::testing::Test {
  protected:
    GeneratedMap() : colours_(ContentOf(VTR_PROGRAM_FOLDER "/map.dat")) {}

    static std::string ContentOf(const std::string &path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// An entry of the template's table: blue, green, red and a zero, behind 54 bytes of headers.
    QRgb ColourOf(int terrainByte) const {
        const std::size_t at = 54 + 4 * static_cast<std::size_t>(terrainByte);
        const auto part = [&](std::size_t i) { return static_cast<unsigned char>(colours_.at(at + i)); };
        return qRgb(part(2), part(1), part(0));
    }
    QImage Generate(const std::string &terrain) const {
        folder_.Make("VTR.TM", terrain);
        GenerateMap(VTR_PROGRAM_FOLDER "/map.dat", folder_.Path(), "VTR.TM");
        QImageReader reader(QString::fromStdString(folder_.Path() + "worldmap.bmp"));
        EXPECT_EQ(reader.format(), "bmp");
        const QImage image = reader.read();
        EXPECT_FALSE(image.isNull()) << reader.errorString().toStdString();
        EXPECT_EQ(image.size(), QSize(640, 320));
        return image;
    }

    TemporaryFolder folder_;
    const std::string colours_;
};

TEST_F(GeneratedMap, ShowsTheTerrainUpsideDown) {
    std::string terrain(204800, '\x01');  // grass
    terrain[0] = '\x02';                  // water in the terrain's first row and column
    terrain[639] = '\x0A';                // a city at that row's end
    terrain[319 * 640] = '\x1B';          // a forest where the last row begins
    terrain[204799] = '\xE2';             // a road, turned west, at the very end
    terrain[10 * 640 + 400] = '\x42';     // water, turned east
    const QImage image = Generate(terrain);
    EXPECT_EQ(image.pixel(0, 319), ColourOf(0x02));
    EXPECT_EQ(image.pixel(639, 319), ColourOf(0x0A));
    EXPECT_EQ(image.pixel(0, 0), ColourOf(0x1B));
    EXPECT_EQ(image.pixel(639, 0), ColourOf(0xE2));
    EXPECT_EQ(image.pixel(400, 319 - 10), ColourOf(0x42));
    EXPECT_EQ(image.pixel(400, 10), ColourOf(0x01));
    EXPECT_NE(ColourOf(0x42), ColourOf(0x02));
}

TEST_F(GeneratedMap, HasATilesColourAtEveryPixel) {
    std::mt19937 random(3);
    std::string terrain;
    for (int i = 0; i < 204800; ++i)
        terrain += static_cast<char>(random() & 0xFF);
    const QImage image = Generate(terrain);
    for (int row = 0; row < 320; ++row)
        for (int column = 0; column < 640; ++column) {
            const auto byte =
                static_cast<unsigned char>(terrain[static_cast<std::size_t>(row * 640 + column)]);
            ASSERT_EQ(image.pixel(column, 319 - row), ColourOf(byte)) << column << ", " << row;
        }
}

}  // namespace
}  // namespace vtr
