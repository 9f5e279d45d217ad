#include "GamePosition.h"

#include <bit>
#include <charconv>

#include "Arithmetic.h"

namespace vtr {

namespace {

constexpr double tileMetres = 4100;
constexpr int mapHeight = 320;

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

/// The shortest decimal text that reads back to metres / 65536 as a double, for metres from 65536 / 64 up to
/// below 2^28; of texts of that length the nearest. The same as ShortestText gives, in half the time: a
/// campaign has thousands of fine offsets.
std::string ShortestTextOf65536ths(std::uint64_t metres) {
    // All digits behind the point, in units of 1e-16, with a 1 before them that keeps their leading zeros.
    constexpr std::uint64_t unitsPer65536th = 152587890625;  // 1e16 / 65536
    constexpr std::uint64_t leadingOne = 10'000'000'000'000'000;
    const std::uint64_t exact = leadingOne + (metres & 0xFFFF) * unitsPer65536th;
    // Half the distance to the next double, whose last bit is 52 below the highest.
    const std::uint64_t tolerance = unitsPer65536th >> (54 - std::bit_width(metres));

    std::uint64_t digits = exact;
    std::uint64_t unit = 1;
    std::uint64_t cutOff = 0;
    while (digits > 1) {
        const std::uint64_t fewer = digits / 10;
        const std::uint64_t over = exact - fewer * (unit * 10);
        if (std::min(over, unit * 10 - over) > tolerance)
            break;
        digits = fewer;
        unit *= 10;
        cutOff = over;
    }
    if (2 * cutOff > unit || (2 * cutOff == unit && digits % 2 == 1))
        ++digits;

    constexpr std::size_t point = 7;  // room for the whole metres before it
    std::array<char, 32> text;
    char *const end = std::to_chars(text.data() + point, text.data() + text.size(), digits).ptr;
    text[point] = '.';
    std::size_t start = point;
    for (std::uint64_t whole = metres >> 16; whole > 0 || start == point; whole /= 10)
        text[--start] = static_cast<char>('0' + whole % 10);
    return {text.data() + start, digits == 1 ? text.data() + point : end};
}

}  // namespace

std::int16_t PixelOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes,
                                 const Place &place) {
    return ToInt16(FloorDiv(ToInt16(QuartersOf(axis, bytes), place), 4), place);
}

std::string FineOffsetOfGamePosition(Axis axis, std::span<const std::uint8_t, gamePositionSize> bytes) {
    const std::int64_t fractions = 65536 * FloorMod(QuartersOf(axis, bytes), 4) + GetUint16(bytes, lowerHalf);
    if (fractions == 0)
        return "0";
    // 4100 / 262144 is 1025 / 65536.
    return ShortestTextOf65536ths(static_cast<std::uint64_t>(fractions) * 1025);
}

std::uint16_t StoredUpperHalf(Axis axis, std::int16_t pixel, const Place &place) {
    const std::int16_t start = axis == Axis::X ? pixel : ToInt16(pixel - mapHeight, place);
    const std::int16_t quarters = ToInt16(std::int64_t{4} * start, place);
    const std::int16_t upper = ToInt16(quarters - (axis == Axis::X ? 640 : 5760), place);
    return static_cast<std::uint16_t>(upper);
}

void EncodeGamePosition(Axis axis, std::int16_t pixel, const std::string &fineOffset,
                        std::span<std::uint8_t, gamePositionSize> bytes, const Place &place) {
    const std::uint16_t upper = StoredUpperHalf(axis, pixel, place);
    const double ratio = NumberOfText(fineOffset, place) / tileMetres;
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
