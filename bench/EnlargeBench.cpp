// The enlargement of the map's surface that each paint of the window makes, compared with copying the
// enlarged surface: by whole factors, and by the factors of displays with finer pixels.

#include <cstring>
#include <random>
#include <string>

#include "Comparison.h"
#include "EnlargedPicture.h"
#include "MapView.h"

namespace {

using namespace vtr;

void CompareBy(double factor) {
    Picture surface{mapWidth, mapHeight, std::vector<std::uint32_t>(std::size_t{mapWidth} * mapHeight)};
    std::mt19937 random(5);
    for (std::uint32_t &pixel : surface.pixels)
        pixel = 0xFF000000U | (random() & 0xFFFFFFU);
    const int width = static_cast<int>(mapWidth * factor);
    const int height = static_cast<int>(mapHeight * factor);
    std::vector<std::uint32_t> enlarged(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::vector<std::uint32_t> copy(enlarged.size());
    const EnlargedAxis axis{0, factor};
    const Comparison times = Compare(
        300,
        [&] {
            EnlargePicture(surface, axis.PixelsFrom(0, width, mapWidth),
                           axis.PixelsFrom(0, height, mapHeight), enlarged);
            asm volatile("" : : "r"(enlarged.data()) : "memory");
        },
        [&] {
            std::memcpy(copy.data(), enlarged.data(), copy.size() * sizeof copy[0]);
            asm volatile("" : : "r"(copy.data()) : "memory");
        });
    const std::string what = "enlarged by " + std::to_string(factor).substr(0, 4);
    ReportAtMost(what.c_str(), times, "memcpy", 3);
}

}  // namespace

int main() {
    for (const double factor : {2.0, 3.0, 4.0, 1.25, 1.5, 2.5})
        CompareBy(factor);
}
