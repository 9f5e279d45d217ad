#pragma once

#include <string>

#include "Bytes.h"

namespace vtr {

/// The bitmap file (*.bmp) in bytes with its rows of pixels in reverse order, so that its picture is upside
/// down; headers, colour table and everything else stay as they are. Throws a type-mismatch Error for what is
/// no bitmap file or a compressed one, and a file-too-short Error when rows are missing. path is for the
/// Error alone.
Bytes MirroredBitmap(Bytes bytes, const std::string &path);

}  // namespace vtr
