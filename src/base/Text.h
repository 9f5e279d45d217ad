#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vtr {

// The game's text is single-byte. It is shown as Windows-1252. That leaves five bytes undefined (129, 141,
// 143, 144, 157). They become the control characters of the same number, so that every byte can be converted
// back.

/// The UTF-8 text that the single-byte characters show as.
std::string Utf8OfWindows1252(std::string_view bytes);
/// True when bytes is well-formed UTF-8 (plain ASCII is).
bool IsUtf8(std::string_view bytes);
/// The UTF-8 of a text from a project file: unchanged when it is UTF-8, else converted from Windows-1252.
std::string Utf8OfProjectText(std::string_view bytes);
/// text, but when it is longer than longest bytes only its beginning and "...". A line of a million letters
/// would take minutes to lay out.
std::string Shortened(std::string_view text, std::size_t longest = 200);
/// The longest path that a message shows whole. Usual paths are shorter.
constexpr std::size_t longestShownPath = 600;
/// The single-byte text that Utf8OfProjectText reads back as text (UTF-8); nothing when there is none.
std::optional<std::string> SingleByteProjectText(std::string_view text);
/// The bytes of text (UTF-8) in a project file: its SingleByteProjectText, or text itself without one.
std::string ProjectTextOfUtf8(std::string_view text);
/// text with its ASCII letters in upper case.
std::string UpperAscii(std::string_view text);

}  // namespace vtr
