#include "GamePosition.h"

#include "Arithmetic.h"
#include "TerrainMap.h"

namespace vtr {

namespace {

enum PositionOffset : std::size_t { lowerHalf = 0, upperHalf = 2 };

/// What is added to the upper half to count quarter tiles from the map's left or upper edge.
constexpr std::int32_t OriginOf(Axis axis) {
    return axis == Axis::X ? 640 : 7040;
}

/// Quarter tiles from the map's edge.
std::int32_t QuartersOf(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes) {
    const std::int32_t word = GetUint16(bytes, upperHalf);
    return (word > 32767 ? word - 65536 : word) + OriginOf(axis);
}

}  // namespace

std::int16_t PixelOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes,
                                 const Place &place) {
    return ToInt16(FloorDiv(ToInt16(QuartersOf(axis, bytes), place), 4), place);
}

double FineOffsetOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes) {
    const std::int64_t fractions = 65536 * FloorMod(QuartersOf(axis, bytes), 4) + GetUint16(bytes, lowerHalf);
    return static_cast<double>(fractions) / 262144 * tileMetres;
}

std::uint16_t StoredUpperHalf(Axis axis, std::int16_t pixel, const Place &place) {
    const std::int16_t start = axis == Axis::X ? pixel : ToInt16(pixel - mapHeight, place);
    const std::int16_t quarters = ToInt16(std::int64_t{4} * start, place);
    const std::int16_t upper = ToInt16(quarters - (axis == Axis::X ? 640 : 5760), place);
    return static_cast<std::uint16_t>(upper);
}

void EncodeGamePosition(Axis axis, std::int16_t pixel, double fineOffset,
                        std::span<std::uint8_t, gamePositionSize> bytes, const Place &place) {
    const std::uint16_t upper = StoredUpperHalf(axis, pixel, place);
    const double ratio = fineOffset / tileMetres;
    const std::uint8_t quarter = ToByte(upper % 256 + std::int64_t{FloorToInt32(4 * ratio, place)}, place);
    // A quarter tile in 65536 steps. Powers of two multiply without rounding, so the two bytes of the steps
    // are floor(rest(4 * ratio) * 256) and floor(rest(1024 * ratio) * 256) to the last bit.
    const std::int32_t steps = FloorToInt32(262144 * ratio, place);
    bytes[lowerHalf] = static_cast<std::uint8_t>(steps & 255);
    bytes[lowerHalf + 1] = static_cast<std::uint8_t>((steps >> 8) & 255);
    bytes[upperHalf] = quarter;
    bytes[upperHalf + 1] = ToByte(upper / 256, place);
}

std::uint16_t TwoByteValue(std::uint8_t first, std::uint8_t second) {
    const auto value = static_cast<std::uint16_t>(first + 256 * second);
    return value == 65535 ? std::uint16_t{0} : value;
}

}  // namespace vtr
