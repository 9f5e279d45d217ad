#include "MirroredBitmap.h"

#include <algorithm>
#include <cstdlib>

#include "Errors.h"

namespace vtr {

namespace {

enum BitmapOffset : std::size_t {
    pixelStart = 10,
    headerSize = 14,
    oldWidth = 18,  ///< in the oldest header, of 12 bytes, as 16-bit numbers
    oldHeight = 20,
    oldBitCount = 24,
    width = 18,
    height = 22,
    bitCount = 28,
    compression = 30,
    endOfOldHeader = 26,
    endOfHeader = 54,
};

struct BitmapLayout {
    std::int64_t start;   ///< of the first row stored
    std::int64_t stride;  ///< bytes from one row to the next
    std::int64_t rows;
};

std::int64_t GetInt32(ConstByteSpan bytes, std::size_t offset) {
    return static_cast<std::int32_t>(GetUint16(bytes, offset) |
                                     (std::uint32_t{GetUint16(bytes, offset + 2)} << 16));
}

BitmapLayout LayoutOf(ConstByteSpan bytes, const std::string &path) {
    const auto refuse = [&path](const char *found) {
        throw Error(ErrorKind::TypeMismatch, {.file = path}, "a bitmap file (*.bmp) without compression",
                    found);
    };
    const bool isBitmap = bytes.size() >= endOfOldHeader && bytes[0] == 'B' && bytes[1] == 'M';
    const std::int64_t size = isBitmap ? GetInt32(bytes, headerSize) : 0;
    const bool isOld = size == 12;
    if (!isOld && (size < 40 || bytes.size() < endOfHeader))
        refuse("a picture of another kind");
    // 3 only adds masks to the headers, except behind a header of 64 bytes.
    const std::int64_t kind = isOld ? 0 : GetInt32(bytes, compression);
    if (kind != 0 && (kind != 3 || size == 64))
        refuse("a compressed bitmap");
    const std::int64_t columns = isOld ? GetUint16(bytes, oldWidth) : GetInt32(bytes, width);
    const std::int64_t rows = isOld ? GetUint16(bytes, oldHeight) : GetInt32(bytes, height);
    const std::int64_t bits = GetUint16(bytes, isOld ? oldBitCount : bitCount);
    const BitmapLayout layout{GetInt32(bytes, pixelStart), (columns * bits + 31) / 32 * 4, std::abs(rows)};
    const std::int64_t headers = size + 14;
    if (columns <= 0 || rows == 0 || bits == 0 || bits > 32 || layout.start < headers)
        refuse("a damaged bitmap");
    return layout;
}

}  // namespace

Bytes MirroredBitmap(Bytes bytes, const std::string &path) {
    const BitmapLayout layout = LayoutOf(bytes, path);
    // Divided, not multiplied: a damaged header may ask for more than fits into any number.
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
