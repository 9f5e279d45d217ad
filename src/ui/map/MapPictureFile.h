#pragma once

#include <string>

#include "Picture.h"

namespace vtr {

/// The map picture at path (UTF-8), in any format that Qt reads. Throws a file-missing Error, or a
/// file-access Error with the reader's words when it is no picture.
Picture ReadMapPicture(const std::string &path);

}  // namespace vtr
