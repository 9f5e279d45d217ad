#include "Arithmetic.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vtr {

void ThrowOverflow(const Place &place, const char *range, std::int64_t found) {
    throw Error(ErrorKind::Overflow, place, std::string("a number from ") + range, std::to_string(found));
}

void ThrowOverflow(const Place &place, const char *range, double found) {
    throw Error(ErrorKind::Overflow, place, std::string("a number from ") + range, ShortestText(found));
}

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5)
        return below;
    if (rest > 0.5)
        return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t RoundToInt16(double value, const Place &place) {
    const double whole = RoundHalfEven(value);
    if (!(whole >= -32768 && whole <= 32767))
        ThrowOverflow(place, "-32768 to 32767", value);
    return static_cast<std::int16_t>(whole);
}

std::int32_t RoundToInt32(double value, const Place &place) {
    return FloorToInt32(RoundHalfEven(value), place);
}

std::uint16_t ToUint16(std::int64_t value, const Place &place) {
    if (value < 0 || value > 65535)
        ThrowOverflow(place, "0 to 65535", value);
    return static_cast<std::uint16_t>(value);
}

std::size_t CheckIndex(std::int64_t index, std::size_t count, const Place &place) {
    if (index < 0 || static_cast<std::uint64_t>(index) >= count)
        throw Error(ErrorKind::IndexOutOfRange, place, "an index from 0 to " + std::to_string(count - 1),
                    std::to_string(index));
    return static_cast<std::size_t>(index);
}

std::string ShortestText(double value) {
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

std::optional<double> FindNumber(std::string_view text) {
    while (text.starts_with(' ') || text.starts_with('\t'))
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace vtr
