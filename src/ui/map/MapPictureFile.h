#pragma once

#include <optional>
#include <string>

#include "LoadListener.h"
#include "Picture.h"

namespace vtr {

/// Reads the map picture at path (UTF-8), in any format that Qt reads. When the file ends too early, tells so
/// in shortFile; missing pixels of a bitmap count as zero. Throws a file-missing Error, a file-access Error
/// with Qt's reason when the file is no picture, and a file-too-large Error above 256 megapixels.
Picture ReadMapPicture(const std::string &path, std::optional<ShortFile> *shortFile = nullptr);

}  // namespace vtr
