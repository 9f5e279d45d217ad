#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vtr {

// The game's text is single-byte. It is shown as Windows-1252; the five bytes which that leaves undefined
// (129, 141, 143, 144, 157) become the control characters of the same number, so that every byte survives
// both ways.

/// The UTF-8 text that the single-byte characters show as.
std::string Utf8OfWindows1252(std::string_view bytes);
/// True when bytes is well-formed UTF-8 (plain ASCII is).
bool IsUtf8(std::string_view bytes);
/// A text from a project file, a name of its own, of a file or a whole line: as it stands when it is UTF-8,
/// else taken as Windows-1252.
std::string Utf8OfProjectText(std::string_view bytes);
/// text, or so much of its beginning and "..." when it is longer than longest bytes: nobody reads the whole
/// of a line of a million letters, and laying it out takes minutes.
std::string Shortened(std::string_view text, std::size_t longest = 200);
/// The longest that a path in a message may be: a usual one is shown whole.
constexpr std::size_t longestShownPath = 600;
/// The single-byte characters that Utf8OfProjectText reads back as text (UTF-8); nothing when there are none.
std::optional<std::string> SingleByteProjectText(std::string_view text);
/// The bytes that stand for text (UTF-8) in a project file: those single-byte ones, else text itself.
std::string ProjectTextOfUtf8(std::string_view text);
/// text with its ASCII letters in upper case.
std::string UpperAscii(std::string_view text);

}  // namespace vtr
