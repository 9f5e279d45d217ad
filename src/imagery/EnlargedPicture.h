#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Picture.h"

namespace vtr {

/// How a row or column of picture pixels lies on the screen. Each pixel of the picture is size screen pixels
/// long, which need not be whole, and the first begins at the screen place start.
struct EnlargedAxis {
    double start = 0;
    double size = 1;

    /// The picture's pixel that the screen pixel shows: the one that its middle lies in. It may lie beside
    /// the picture.
    int PixelAt(int screenPixel) const;
    /// The same for count screen pixels from first on. What lies beside the picture of total pixels shows its
    /// nearest pixel.
    std::vector<int> PixelsFrom(int first, int count, int total) const;
};

/// Writes, row by row, the pixels of picture that stand where columns and rows cross.
void EnlargePicture(const Picture &picture, std::span<const int> columns, std::span<const int> rows,
                    std::span<std::uint32_t> enlarged);

}  // namespace vtr
