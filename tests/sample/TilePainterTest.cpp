#include <algorithm>
#include <map>
#include <set>

#include "GroundPainter.h"
#include "SharedSample.h"
#include "TilePainter.h"

namespace vtr {
namespace {

Bytes DecodedPixels(const Bytes &file) {
    Bytes pixels;
    for (std::size_t at = 128; pixels.size() < 65536 && at < file.size(); ++at) {
        if (file[at] < 0xC0) {
            pixels.push_back(file[at]);
            continue;
        }
        const int run = file[at] & 0x3F;
        ++at;
        pixels.insert(pixels.end(), static_cast<std::size_t>(run), file[at]);
    }
    return pixels;
}

// The ramp that most pixels of the middle of a row or column band have.
Ramp MainRampOf(const Bytes &pixels, int left, int top, int right, int bottom) {
    std::map<int, int> counts;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            ++counts[pixels.at(static_cast<std::size_t>(y * 256 + x)) / 16];
    return static_cast<Ramp>(
        std::ranges::max_element(counts, {}, [](const auto &entry) { return entry.second; })->first);
}

Bytes PaintedTile(Tile tile) {
    return PaintTile(tileDesigns[static_cast<std::size_t>(tile)]);
}

TEST(TilePainter, MakesAPictureForEveryTileTypeAndNoTwoAlike) {
    const std::vector<SampleFile> files = SampleTilePictures();
    ASSERT_EQ(files.size(), 59U);
    std::set<std::string> names;
    std::set<Bytes> pictures;
    for (const SampleFile &file : files) {
        EXPECT_TRUE(file.name.starts_with("tiles/BN")) << file.name;
        names.insert(file.name);
        const Bytes pixels = DecodedPixels(file.bytes);
        EXPECT_EQ(pixels.size(), 65536U) << file.name;
        pictures.insert(pixels);
    }
    EXPECT_EQ(names.size(), 59U);
    EXPECT_EQ(pictures.size(), 59U);
}

TEST(TilePainter, PicturesAreTheSameTwiceAndAreEncodedAsPainted) {
    const std::vector<SampleFile> files = SampleTilePictures();
    for (const Tile tile : {Tile::Coast1, Tile::City1, Tile::Forst2})
        EXPECT_TRUE(DecodedPixels(files[static_cast<std::size_t>(tile)].bytes) == PaintedTile(tile));
}

TEST(TilePainter, ShowsTheSeaInTheNorthOfAShoreAndLandInItsSouth) {
    const Bytes coast = PaintedTile(Tile::Coast1);
    EXPECT_EQ(MainRampOf(coast, 0, 0, 256, 40), Ramp::Sea);
    EXPECT_EQ(MainRampOf(coast, 0, 160, 256, 256), Ramp::Grass);
    EXPECT_EQ(MainRampOf(PaintedTile(Tile::Water), 0, 0, 256, 256), Ramp::Sea);
}

TEST(TilePainter, LetsARiverRunFromNorthToSouthAndARoadCrossIt) {
    const Bytes bridge = PaintedTile(Tile::RivrBR);
    EXPECT_EQ(MainRampOf(bridge, 120, 0, 136, 60), Ramp::Shallow);
    EXPECT_EQ(MainRampOf(bridge, 120, 200, 136, 256), Ramp::Shallow);
    EXPECT_EQ(MainRampOf(bridge, 0, 124, 256, 132), Ramp::Asphalt);
}

TEST(TilePainter, PutsNamedRampsWhereTheyBelong) {
    EXPECT_EQ(MainRampOf(PaintedTile(Tile::Mount4), 0, 0, 256, 256), Ramp::Snow);
    EXPECT_EQ(MainRampOf(PaintedTile(Tile::Mount1), 0, 0, 256, 256), Ramp::Rock);
    EXPECT_EQ(MainRampOf(PaintedTile(Tile::City1), 0, 0, 256, 256), Ramp::Roof);
    EXPECT_EQ(MainRampOf(PaintedTile(Tile::Grass), 0, 0, 256, 256), Ramp::Grass);
}

}  // namespace
}  // namespace vtr
