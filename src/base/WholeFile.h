#pragma once

#include <string>

#include "Bytes.h"

namespace vtr {

/// The whole content of the regular file at path (UTF-8), in one read. A file that is named in another letter
/// case than it has on disk is still found. Throws file-missing or file-access Errors.
Bytes ReadWholeFile(const std::string &path);
/// The same, but nothing when there is no such file.
Bytes ReadWholeFileIfThere(const std::string &path);

}  // namespace vtr
