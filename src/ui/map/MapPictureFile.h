#pragma once

#include <optional>
#include <string>

#include "LoadListener.h"
#include "Picture.h"

namespace vtr {

/// The map picture at path (UTF-8), in any format that Qt reads. A picture that ends too early is put
/// into shortFile; what a bitmap lacks of its pixels counts as zero. Throws a file-missing Error, a
/// file-access Error with the reader's words when it is no picture, and a file-too-large Error above 256
/// megapixels.
Picture ReadMapPicture(const std::string &path, std::optional<ShortFile> *shortFile = nullptr);

}  // namespace vtr
