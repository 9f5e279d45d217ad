#include "PcxEncoder.h"

#include "Arithmetic.h"

namespace vtr {

namespace {

constexpr std::uint8_t runMark = 0xC0;
constexpr std::size_t longestRun = 63;

void AppendRuns(ConstByteSpan row, Bytes &bytes) {
    for (std::size_t x = 0; x < row.size();) {
        std::size_t run = 1;
        while (x + run < row.size() && run < longestRun && row[x + run] == row[x])
            ++run;
        // A byte that looks like a run's length must be written as a run.
        if (run > 1 || row[x] >= runMark)
            bytes.push_back(static_cast<std::uint8_t>(runMark | run));
        bytes.push_back(row[x]);
        x += run;
    }
}

}  // namespace

Bytes EncodePcx(int width, int height, ConstByteSpan pixels, const Palette &palette) {
    Bytes bytes(128);
    bytes[0] = 10;  // the maker's mark
    bytes[1] = 5;   // version 5: with a palette at the end
    bytes[2] = 1;   // run-length encoded
    bytes[3] = 8;
    PutUint16(bytes, 8, static_cast<std::uint16_t>(ToInt16(width - 1)));
    PutUint16(bytes, 10, static_cast<std::uint16_t>(ToInt16(height - 1)));
    PutUint16(bytes, 12, 72);
    PutUint16(bytes, 14, 72);
    bytes[65] = 1;
    PutUint16(bytes, 66, static_cast<std::uint16_t>(ToInt16(width)));
    PutUint16(bytes, 68, 1);
    const auto stride = static_cast<std::size_t>(width);
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y)
        AppendRuns(pixels.subspan(y * stride, stride), bytes);
    bytes.push_back(12);
    for (const auto &colour : palette)
        bytes.insert(bytes.end(), colour.begin(), colour.end());
    return bytes;
}

}  // namespace vtr
