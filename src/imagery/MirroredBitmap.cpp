#include "MirroredBitmap.h"

#include <algorithm>
#include <cstdlib>

#include "BitmapHeader.h"
#include "Errors.h"

namespace vtr {

namespace {

struct BitmapLayout {
    std::int64_t start;   ///< of the first row stored
    std::int64_t stride;  ///< bytes from one row to the next
    std::int64_t rows;
};

BitmapLayout LayoutOf(ConstByteSpan bytes, const std::string &path) {
    const auto refuse = [&path](const char *found) {
        throw Error(ErrorKind::TypeMismatch, {.file = path}, "a bitmap file (*.bmp) without compression",
                    found);
    };
    const std::optional<BitmapHeader> header = ReadBitmapHeader(bytes);
    if (!header)
        refuse("a picture of another kind");
    // 3 only adds masks to the headers. In a header of 64 bytes it is a compression.
    if (header->compression != 0 && (header->compression != 3 || header->size == 64))
        refuse("a compressed bitmap");
    if (header->columns <= 0 || header->rows == 0 || header->bits == 0 || header->bits > 32 ||
        header->pixelStart < bitmapInfoStart + header->size)
        refuse("a damaged bitmap");
    return {header->pixelStart, header->BytesPerRow(), std::abs(header->rows)};
}

}  // namespace

Bytes MirroredBitmap(Bytes bytes, const std::string &path) {
    const BitmapLayout layout = LayoutOf(bytes, path);
    // A division, because rows * stride of a damaged header may overflow.
    const std::int64_t held = (static_cast<std::int64_t>(bytes.size()) - layout.start) / layout.stride;
    if (held < layout.rows)
        throw Error(ErrorKind::FileTooShort, {.file = path}, std::to_string(layout.rows) + " rows of pixels",
                    std::to_string(std::max<std::int64_t>(held, 0)));
    auto first = bytes.begin() + layout.start;
    auto last = first + (layout.rows - 1) * layout.stride;
    for (; first < last; first += layout.stride, last -= layout.stride)
        std::swap_ranges(first, first + layout.stride, last);
    return bytes;
}

}  // namespace vtr
