#include "GroundPainter.h"

#include <cstdlib>

#include "Noise.h"
#include "TileTexture.h"

namespace vtr {

namespace {

constexpr int edge = 256;

class GroundPainter {
  public:
    explicit GroundPainter(int variant)
        : variant_(variant), seed_(400 + static_cast<std::uint32_t>(variant) * 7) {}

    Bytes Paint(Ground ground) {
        switch (ground) {
            case Ground::Water:
                return Fill([&](Point at) { return WaterAt(at); });
            case Ground::Meadow:
                return Fill([&](Point at) { return Meadow(at); });
            case Ground::Fields:
                return Fill([&](Point at) { return Field(at); });
            case Ground::Forest:
                return Forest();
            case Ground::Mountain:
                return Fill([&](Point at) { return Mountain(at); });
            case Ground::City:
                break;
        }
        return Fill([&](Point at) { return City(at); });
    }

  private:
    template <typename ColourAt>
    static Bytes Fill(const ColourAt &colourAt) {
        Bytes pixels;
        pixels.reserve(std::size_t{edge} * edge);
        for (int y = 0; y < edge; ++y)
            for (int x = 0; x < edge; ++x)
                pixels.push_back(colourAt(Point{x, y}));
        return pixels;
    }

    // Each variant shows another part of the textures.
    int Coarse(int x, int y) const { return CoarseTexture().At(x + 53 * variant_, y + 97 * variant_); }
    static int Fine(int x, int y) { return FineTexture().At(x, y); }

    std::uint8_t Meadow(Point at) const {
        const int tuft = Fine(at.x, at.y);
        const Ramp ramp = Coarse(at.x + 128, at.y) + tuft / 2 > 500 ? Ramp::Meadow : Ramp::Grass;
        return Shade(ramp, 8 + Coarse(at.x, at.y) / 420 + tuft / 420);
    }

    // Parcels of one crop each, ploughed along or across, with hedges between them.
    std::uint8_t Field(Point at) const {
        const int width = variant_ % 3 == 0 ? 128 : 64;
        const int height = variant_ % 2 == 0 ? 128 : 64;
        const Point bent{(at.x + Coarse(at.x, at.y) / 240) & (edge - 1),
                         (at.y + Coarse(at.y, at.x + 70) / 240) & (edge - 1)};
        const int row = bent.y / height;
        const int slid = (bent.x + row * width / 2) & (edge - 1);
        const int grain = Fine(at.x, at.y);
        if (slid % width < 3 || bent.y % height < 3)
            return Shade(Ramp::Hedge, 5 + grain / 350);
        const std::uint32_t parcel = Hash(slid / width, row, seed_);
        constexpr std::array<Ramp, 6> crops{Ramp::Wheat, Ramp::Crop,  Ramp::Meadow,
                                            Ramp::Soil,  Ramp::Grass, Ramp::Crop};
        const int furrow = ((parcel >> 8 & 1) != 0 ? slid : bent.y) % 6;
        const int light = static_cast<int>(parcel >> 12 & 3);
        return Shade(crops[parcel % crops.size()], 7 + light + (furrow < 3 ? -1 : 1) + grain / 700);
    }

    // Round tree tops, lit from the north-west, on a dark floor with clearings.
    Bytes Forest() const {
        Bytes pixels = Fill([&](Point at) { return Clearing(at) ? Meadow(at) : Shade(Ramp::DeepForest, 2); });
        Random random(seed_ + 5);
        for (int tree = 0; tree < 2600; ++tree) {
            const Point top{random.Below(edge), random.Below(edge)};
            const int reach = random.Between(4, 8);
            const Ramp ramp = random.Below(3) < variant_ % 3 ? Ramp::DeepForest : Ramp::Forest;
            const int light = random.Between(5, 8);
            if (!Clearing(top))
                PlantTree(pixels, top, reach, ramp, light);
        }
        return pixels;
    }

    bool Clearing(Point at) const {
        constexpr std::array<int, 8> limits{900, 1500, 1150, 750, 500, 250, 1300, 650};
        return Coarse(at.x, at.y) > limits[static_cast<std::size_t>(variant_)];
    }

    static void PlantTree(Bytes &pixels, Point top, int reach, Ramp ramp, int light) {
        for (int y = -reach; y <= reach; ++y)
            for (int x = -reach; x <= reach; ++x) {
                const int index = ((top.y + y) & (edge - 1)) * edge + ((top.x + x) & (edge - 1));
                if (x * x + y * y <= reach * reach)
                    pixels[static_cast<std::size_t>(index)] = Shade(ramp, light - (x + y) * 4 / reach);
            }
    }

    int Ridge(int x, int y) const {
        return -2 * std::abs(Coarse(x, y)) + Coarse(x + 64, y + 128) / 2 + Fine(x, y) / 8;
    }

    std::uint8_t Mountain(Point at) const {
        constexpr std::array<int, 5> snowLines{5000, 5000, 300, -300, -1100};
        const int height = Ridge(at.x, at.y);
        const int light = (height - Ridge(at.x - 2, at.y - 2)) / 40;
        const int grain = Fine(at.x, at.y) / 600;
        if (height > snowLines[static_cast<std::size_t>(variant_)] + 2 * Fine(at.y, at.x) / 8)
            return Shade(Ramp::Snow, 10 + light + grain / 2);
        if (height < -2200 + 300 * (4 - variant_))
            return Shade(variant_ < 3 ? Ramp::Forest : Ramp::Rock, 6 + light + grain);
        return Shade(Ramp::Rock, 8 + light + grain);
    }

    // Blocks of houses between streets; the higher the variant, the more green.
    std::uint8_t City(Point at) const {
        constexpr int block = 64;
        const int house = variant_ < 3 ? 13 : 19;
        const int inX = at.x % block;
        const int inY = at.y % block;
        const int grain = Fine(at.x, at.y);
        if (inX < 7 || inY < 7)
            return Shade(Ramp::Asphalt, (inX == 3 || inY == 3) ? 11 : 8 + grain / 800);
        const std::uint32_t blockDice = Hash(at.x / block, at.y / block, seed_);
        if (static_cast<int>(blockDice % 12) < variant_ - 2)
            return Park(at);
        const int houseX = (inX - 7) / house;
        const int houseY = (inY - 7) / house;
        const std::uint32_t dice = Hash(at.x / block * 8 + houseX, at.y / block * 8 + houseY, seed_ + 1);
        if (static_cast<int>(dice % 10) < variant_ / 2)
            return Park(at);
        const int offX = (inX - 7) % house;
        const int offY = (inY - 7) % house;
        if (offX >= house - 2 || offY >= house - 2)
            return Shade(Ramp::Concrete, 1);
        const int light = static_cast<int>(dice >> 8 & 3);
        const bool slate = (dice >> 12 & 3) == 0;
        const bool sunny = (dice >> 16 & 1) != 0 ? offX < house / 2 : offY < house / 2;
        return Shade(slate ? Ramp::Concrete : Ramp::Roof, 6 + light + (sunny ? 3 : 0) + grain / 900);
    }

    std::uint8_t Park(Point at) const {
        const int tuft = Fine(at.x, at.y);
        return tuft > 300 ? Shade(Ramp::Forest, 5 + tuft / 300) : Shade(Ramp::Grass, 8 + tuft / 400);
    }

    int variant_;
    std::uint32_t seed_;
};

}  // namespace

std::uint8_t WaterAt(Point at) {
    const int swell = CoarseTexture().At(at.x, at.y);
    // Crests run from east to west, bent by the swell; 32 divides the tile's edge, so they meet the next
    // tile.
    const int phase = (at.y + swell / 60 + FineTexture().At(at.x, at.y) / 500 + 64) & 31;
    const int crest = phase < 3 && FineTexture().At(at.x / 2, at.y + 60) > 0 ? 5 - phase : 0;
    return Shade(Ramp::Sea, 6 + swell / 500 + (phase < 16 ? 1 : 0) + crest);
}

Bytes PaintGround(Ground ground, int variant) {
    return GroundPainter(variant).Paint(ground);
}

}  // namespace vtr
