// Pictures encoded by a program that knows nothing of the reader.

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

#include "TemporaryFolder.h"
#include "modPcxReader.h"

namespace vtr {
namespace {

struct Rgb {
    int red;
    int green;
    int blue;
};

using Painter = std::function<Rgb(int x, int y)>;

Bytes EncodedBy(const std::string &command, int width, int height, const Painter &paint) {
    const TemporaryFolder folder;
    std::string ppm = "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Rgb colour = paint(x, y);
            for (const int part : {colour.red, colour.green, colour.blue})
                ppm += static_cast<char>(part);
        }
    folder.Make("in.ppm", ppm);
    const std::string run = "cd " + folder.Path() + " && " + command + " 2>log";
    EXPECT_EQ(std::system(run.c_str()), 0) << run << '\n' << folder.Content("log");
    const std::string file = folder.Content("out.pcx");
    return {file.begin(), file.end()};
}

void ExpectPicture(const Bytes &file, int width, int height, const Painter &paint) {
    const PcxResult result = DecodePcx(file);
    ASSERT_TRUE(std::holds_alternative<PcxPicture>(result));
    const Picture &picture = std::get<PcxPicture>(result).picture;
    ASSERT_EQ(picture.width, width);
    ASSERT_EQ(picture.height, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Rgb colour = paint(x, y);
            const auto expected = 0xFF000000U + static_cast<std::uint32_t>(colour.red * 65536 +
                                                                           colour.green * 256 + colour.blue);
            ASSERT_EQ(picture.pixels[static_cast<std::size_t>(y * width + x)], expected)
                << "pixel " << x << ", " << y << " of " << width << " x " << height;
        }
}

/// The encoder does not pad lines, so the picture keeps its width.
void ExpectEncodersPicture(const std::string &command, int width, int height, const Painter &paint) {
    SCOPED_TRACE(command);
    ExpectPicture(EncodedBy(command, width, height, paint), width, height, paint);
}

/// Encodes the picture one column wider and makes its header name the odd width. Then that column is the
/// padding of an odd line, and it shows.
void ExpectPaddedPicture(const std::string &command, int oddWidth, int height, const Painter &paint) {
    SCOPED_TRACE(command + ", padded");
    Bytes file = EncodedBy(command, oddWidth + 1, height, paint);
    ASSERT_EQ(file.at(66) + 256 * file.at(67), oddWidth + 1);
    ASSERT_EQ(file.at(8) + 256 * file.at(9), oddWidth);
    PutUint16(file, 8, static_cast<std::uint16_t>(oddWidth - 1));
    ExpectPicture(file, oddWidth + 1, height, paint);
}

/// Pictures of at most 256 colours: flat, striped, of every colour, almost without runs.
void ExpectEncoders256ColourPictures(const std::string &command) {
    const std::vector<std::pair<int, int>> sizes = {{1, 20},  {7, 5},   {33, 17},
                                                    {64, 64}, {131, 3}, {256, 256}};
    const std::vector<Painter> painters = {[](int x, int y) {
                                               return Rgb{x % 16 * 16, y % 16 * 16, 255};
                                           },
                                           [](int x, int y) {
                                               return y < 2 ? Rgb{x % 20, y, 9} : Rgb{200, 100, 50};
                                           },
                                           [](int x, int y) {
                                               return Rgb{(x * 7 + y * 13) % 200, 255, 0};
                                           }};
    for (const auto &[width, height] : sizes)
        for (const Painter &paint : painters) {
            ExpectEncodersPicture(command, width, height, paint);
            if (width % 2 != 0)
                ExpectPaddedPicture(command, width, height, paint);
        }
}

void ExpectEncoders24BitPictures(const std::string &command) {
    const std::vector<std::pair<int, int>> sizes = {{2, 2}, {7, 5}, {33, 17}, {64, 64}, {131, 3}, {256, 256}};
    for (const auto &[width, height] : sizes) {
        ExpectEncodersPicture(command, width, height, [](int x, int y) {
            return Rgb{x * 7 % 256, y * 5 % 256, x * y % 256};
        });
        ExpectEncodersPicture(command, width, height, [](int x, int y) {
            return x + y > 3 ? Rgb{255, 255, 254} : Rgb{x, y, 192};
        });
    }
}

bool Installed(const std::string &program) {
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
}

TEST(PcxByNetpbm, PicturesOf256ColoursDecodeToTheSamePixels) {
    ASSERT_TRUE(Installed("ppmtopcx")) << "netpbm is not installed";
    ExpectEncoders256ColourPictures("ppmtopcx -8bit in.ppm >out.pcx");
}

TEST(PcxByNetpbm, PicturesOf24BitsDecodeToTheSamePixels) {
    ASSERT_TRUE(Installed("ppmtopcx")) << "netpbm is not installed";
    ExpectEncoders24BitPictures("ppmtopcx -24bit in.ppm >out.pcx");
}

}  // namespace
}  // namespace vtr
