#pragma once

#include <array>

#include "Bytes.h"

namespace vtr {

/// 256 colours of red, green, blue.
using Palette = std::array<std::array<std::uint8_t, 3>, 256>;

/// A run-length encoded PCX file of 8 bits a pixel with its palette at the end. pixels holds height rows of
/// width palette indices. width is even.
Bytes EncodePcx(int width, int height, ConstByteSpan pixels, const Palette &palette);

}  // namespace vtr
