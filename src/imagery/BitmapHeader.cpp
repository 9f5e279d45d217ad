#include "BitmapHeader.h"

namespace vtr {

namespace {

enum BitmapOffset : std::size_t {
    pixelStart = 10,
    headerSize = bitmapInfoStart,
    oldColumns = 18,  // in the oldest header as 16-bit numbers
    oldRows = 20,
    oldBits = 24,
    endOfOldHeader = 26,
    columns = 18,
    rows = 22,
    bits = 28,
    compression = 30,
    coloursUsed = 46,
    endOfHeader = 54
};

constexpr std::int64_t oldHeaderSize = 12;

std::int64_t GetInt32(ConstByteSpan bytes, std::size_t offset) {
    return static_cast<std::int32_t>(GetUint16(bytes, offset) |
                                     (std::uint32_t{GetUint16(bytes, offset + 2)} << 16));
}

}  // namespace

std::optional<BitmapHeader> ReadBitmapHeader(ConstByteSpan bytes) {
    if (bytes.size() < endOfOldHeader || bytes[0] != 'B' || bytes[1] != 'M')
        return std::nullopt;
    const std::int64_t size = GetInt32(bytes, headerSize);
    const std::int64_t start = GetInt32(bytes, pixelStart);
    if (size == oldHeaderSize)
        return BitmapHeader{
            size, GetUint16(bytes, oldColumns), GetUint16(bytes, oldRows), GetUint16(bytes, oldBits), 0, 0,
            start};
    if (size < 40 || bytes.size() < endOfHeader)
        return std::nullopt;
    return BitmapHeader{size,
                        GetInt32(bytes, columns),
                        GetInt32(bytes, rows),
                        GetUint16(bytes, bits),
                        GetInt32(bytes, compression),
                        GetInt32(bytes, coloursUsed),
                        start};
}

}  // namespace vtr
