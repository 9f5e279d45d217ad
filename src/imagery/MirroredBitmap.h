#pragma once

#include <string>

#include "Bytes.h"

namespace vtr {

/// Turns the picture of the bitmap file (*.bmp) in bytes upside down by reversing its rows of pixels. All
/// other bytes stay. Throws a type-mismatch Error when bytes are no bitmap file or a compressed one, and a
/// file-too-short Error when rows are missing. Only the Errors use path.
Bytes MirroredBitmap(Bytes bytes, const std::string &path);

}  // namespace vtr
