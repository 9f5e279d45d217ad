#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Errors.h"

namespace vtr {

/// The whole number nearest to value, halves to the even one, in every rounding mode of the processor.
double RoundHalfEven(double value);

/// The overflow Error of a number found outside range.
[[noreturn]] void ThrowOverflow(const Place &place, const char *range, std::int64_t found);
[[noreturn]] void ThrowOverflow(const Place &place, const char *range, double found);

/// value as a 16-bit signed number. Throws an overflow Error outside -32768..32767.
inline std::int16_t ToInt16(std::int64_t value, const Place &place = {}) {
    if (value < -32768 || value > 32767)
        ThrowOverflow(place, "-32768 to 32767", value);
    return static_cast<std::int16_t>(value);
}
/// value rounded half to even, as a 16-bit signed number. Throws an overflow Error outside the range, also
/// for NaN.
std::int16_t RoundToInt16(double value, const Place &place = {});
/// value rounded half to even, as a 32-bit signed number. Throws an overflow Error outside the range, also
/// for NaN.
std::int32_t RoundToInt32(double value, const Place &place = {});
/// value as a byte. Throws an overflow Error outside 0..255.
inline std::uint8_t ToByte(std::int64_t value, const Place &place = {}) {
    if (value < 0 || value > 255)
        ThrowOverflow(place, "0 to 255", value);
    return static_cast<std::uint8_t>(value);
}
/// value as a 16-bit unsigned number. Throws an overflow Error outside 0..65535.
std::uint16_t ToUint16(std::int64_t value, const Place &place = {});

/// The largest whole number not above value. Throws an overflow Error outside 32 bits.
inline std::int32_t FloorToInt32(double value, const Place &place = {}) {
    if (!(value >= -2147483648.0 && value < 2147483648.0))
        ThrowOverflow(place, "-2147483648 to 2147483647", value);
    const auto towardsZero = static_cast<std::int32_t>(value);
    return towardsZero > value ? towardsZero - 1 : towardsZero;
}
/// floor(a / b) for b > 0.
constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}
/// The mathematical remainder of a / b for b > 0: never negative.
constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b) {
    return a % b + (a % b < 0 ? b : 0);
}

/// The largest whole number whose square is not above value, for value >= 0.
inline std::int64_t SquareRoot(std::int64_t value) {
    auto root = static_cast<std::int64_t>(std::sqrt(static_cast<double>(value)));
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return root;
}

/// Returns index. Throws an index Error when it is not within 0..count-1.
std::size_t CheckIndex(std::int64_t index, std::size_t count, const Place &place = {});

/// The shortest decimal text that reads back to the same double (no exponent for the values the files hold).
std::string ShortestText(double value);
/// The number that text consists of, in the C locale. Blanks may stand before it. None for any other text.
std::optional<double> FindNumber(std::string_view text);

}  // namespace vtr
