#pragma once

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
/// text with its ASCII letters in upper case.
std::string UpperAscii(std::string_view text);

}  // namespace vtr
