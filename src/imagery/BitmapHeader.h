#pragma once

#include <optional>

#include "Bytes.h"

namespace vtr {

/// The header of a bitmap file (*.bmp).
struct BitmapHeader {
    std::int64_t size;  ///< of the information header: 12 in the oldest files, else 40 or more
    std::int64_t columns;
    std::int64_t rows;         ///< below 0 when the top row comes first
    std::int64_t bits;         ///< of a pixel
    std::int64_t compression;  ///< 0 none; 3 none, with masks of the colours
    std::int64_t coloursUsed;  ///< in the colour table; 0: as many as bits allow
    std::int64_t pixelStart;   ///< in the file

    /// Without compression.
    std::int64_t BytesPerRow() const { return (columns * bits + 31) / 32 * 4; }
};

/// The information header follows the file's own header.
constexpr std::int64_t bitmapInfoStart = 14;

/// Nothing when bytes do not begin like a bitmap file. The numbers are not checked.
std::optional<BitmapHeader> ReadBitmapHeader(ConstByteSpan bytes);

}  // namespace vtr
