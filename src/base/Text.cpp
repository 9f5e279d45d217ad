#include "Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vtr {

namespace {

/// The characters of bytes 128 to 159 in Windows-1252; the undefined ones stand for themselves.
constexpr std::array<char16_t, 32> windows1252Upper{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string &text, char16_t character) {
    const auto byte = [&text](int value) { text.push_back(static_cast<char>(value)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | (character >> 6));
        byte(0x80 | (character & 0x3F));
    } else {
        byte(0xE0 | (character >> 12));
        byte(0x80 | ((character >> 6) & 0x3F));
        byte(0x80 | (character & 0x3F));
    }
}

}  // namespace

std::string Utf8OfWindows1252(std::string_view bytes) {
    std::string text;
    for (const char character : bytes) {
        const auto byte = static_cast<std::uint8_t>(character);
        AppendUtf8(text, byte >= 128 && byte < 160 ? windows1252Upper[byte - 128U] : char16_t{byte});
    }
    return text;
}

bool IsUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto lead = static_cast<std::uint8_t>(bytes[at++]);
        if (lead < 0x80)
            continue;
        const int following = lead >= 0xC2 && lead < 0xE0   ? 1
                              : lead >= 0xE0 && lead < 0xF0 ? 2
                              : lead >= 0xF0 && lead < 0xF5 ? 3
                                                            : 0;
        if (following == 0)
            return false;
        // The second byte's range rules out overlong forms, surrogates and what lies beyond U+10FFFF.
        std::uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        std::uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        for (int i = 0; i < following; ++i) {
            if (at == bytes.size())
                return false;
            const auto next = static_cast<std::uint8_t>(bytes[at++]);
            if (next < low || next > high)
                return false;
            low = 0x80;
            high = 0xBF;
        }
    }
    return true;
}

std::string Utf8OfProjectText(std::string_view bytes) {
    return IsUtf8(bytes) ? std::string(bytes) : Utf8OfWindows1252(bytes);
}

std::string Shortened(std::string_view text, std::size_t longest) {
    if (text.size() <= longest)
        return std::string(text);
    // Does not cut through a UTF-8 character, which has at most three bytes behind its first.
    std::size_t end = longest;
    while (end + 3 > longest && (static_cast<std::uint8_t>(text[end]) & 0xC0) == 0x80)
        --end;
    return std::string(text.substr(0, end)) + "...";
}

std::optional<std::string> SingleByteProjectText(std::string_view text) {
    std::string bytes;
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto startsWith = [rest](int byte) {
            const char character = static_cast<char>(byte);
            return rest.starts_with(Utf8OfWindows1252({&character, 1}));
        };
        int byte = static_cast<std::uint8_t>(rest.front());
        if (byte >= 128) {
            byte = 128;
            while (byte < 256 && !startsWith(byte))
                ++byte;
        }
        if (byte == 256)
            return std::nullopt;
        bytes.push_back(static_cast<char>(byte));
        rest.remove_prefix(Utf8OfWindows1252({&bytes.back(), 1}).size());
    }
    return Utf8OfProjectText(bytes) == text ? std::optional(bytes) : std::nullopt;
}

std::string ProjectTextOfUtf8(std::string_view text) {
    return SingleByteProjectText(text).value_or(std::string(text));
}

std::string UpperAscii(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), [](char character) {
        return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    });
    return upper;
}

}  // namespace vtr
