#pragma once

#include <optional>

#include "Bytes.h"

namespace vtr {

/// What stands before the pixels of a bitmap file (*.bmp).
struct BitmapHeader {
    std::int64_t size;  ///< of the header that tells the rest: 12 in the oldest files, else 40 or more
    std::int64_t columns;
    std::int64_t rows;         ///< below 0 when the top row comes first
    std::int64_t bits;         ///< of a pixel
    std::int64_t compression;  ///< 0 none; 3 none, with masks of the colours
    std::int64_t coloursUsed;  ///< of the table; 0 for as many as bits allow
    std::int64_t pixelStart;   ///< in the file

    /// From one row to the next, when there is no compression.
    std::int64_t BytesPerRow() const { return (columns * bits + 31) / 32 * 4; }
};

/// Where the information header starts, behind the header of the file.
constexpr std::int64_t bitmapInfoStart = 14;

/// Nothing when the bytes do not begin as a bitmap file does; the numbers may be any.
std::optional<BitmapHeader> ReadBitmapHeader(ConstByteSpan bytes);

}  // namespace vtr
