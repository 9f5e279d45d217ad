#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "Bytes.h"
#include "Errors.h"
#include "Picture.h"

namespace vtr {

/// An entry of a logical palette, its four bytes in their order in memory.
struct PaletteEntry {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t flags = 0;

    bool operator==(const PaletteEntry &) const = default;
};

/// The two forms of a picture's 256 colours.
struct PcxPalette {
    std::array<std::uint32_t, 256> colourTable{};  ///< red * 65536 + green * 256 + blue
    /// The bytes of the colour table in their order in memory (blue, green, red, 0), so that red and blue are
    /// exchanged. That is intended. Only palette-based screens show it.
    std::array<PaletteEntry, 256> logicalPalette{};
};

struct PcxPicture {
    Picture picture;
    std::optional<PcxPalette> palette;  ///< of a picture of 256 colours; one of 24 bits has none
};

enum class PcxIcon { None, Exclamation };

/// A PCX picture of a kind that the editor does not show. With an empty message it tells the user nothing.
struct PcxRefusal {
    std::string_view message;
    PcxIcon icon = PcxIcon::None;
};

using PcxResult = std::variant<PcxPicture, PcxRefusal>;

/// Decodes a PCX file with 8 bits a pixel and plane: 256 colours in one plane, or 24-bit colours in three. A
/// picture of 256 colours is as wide as its scan lines are long, so that padding shows at the right. Throws
/// - a file-too-short Error when the header or the colours are not complete,
/// - an overflow Error for a size beyond 16 bits or of more than 64 MiB of 32-bit pixels,
/// - an index Error for a height below 1, for a width below 1 in three planes, and for run-length data that
///   leaves its buffers, with the offset of the byte that does.
PcxResult DecodePcx(ConstByteSpan file, const Place &place = {});

/// Decodes the PCX file at path (UTF-8). Throws what DecodePcx throws and file Errors. Does not read a file
/// of more than 128 MiB but throws an overflow Error.
PcxResult LoadPcx(const std::string &path);

}  // namespace vtr
