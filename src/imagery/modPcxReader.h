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

/// An entry of a logical palette as its four bytes lie in memory.
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
    /// The colour table's bytes (blue, green, red, 0) taken as they lie: red and blue are exchanged. That is
    /// wanted, and shows on palette-based screens only.
    std::array<PaletteEntry, 256> logicalPalette{};
};

struct PcxPicture {
    Picture picture;
    std::optional<PcxPalette> palette;  ///< of a picture of 256 colours; one of 24 bits has none
};

enum class PcxIcon { None, Exclamation };

/// A file that is a PCX picture of a kind we do not show. An empty message means: refused without a word.
struct PcxRefusal {
    std::string_view message;
    PcxIcon icon = PcxIcon::None;
};

using PcxResult = std::variant<PcxPicture, PcxRefusal>;

/// The picture in the bytes of a PCX file with 8 bits a pixel: of 256 colours in one plane, as wide as its
/// scan lines are long (padding shows at the right), or of 24 bits in three. Throws a file-too-short Error
/// for a file without a whole header or without room for its colours, an overflow Error for a size beyond 16
/// bits or of more than 64 MiB of 32-bit pixels, and an index Error for a height, or in three planes a width,
/// below 1 and for run-length data that leaves its buffers, at the offset of the byte that did.
PcxResult DecodePcx(ConstByteSpan file, const Place &place = {});

/// The picture in the PCX file at path (UTF-8). Throws what DecodePcx throws, file Errors, and an overflow
/// Error for a file of more than 128 MiB, which it does not read.
PcxResult LoadPcx(const std::string &path);

}  // namespace vtr
