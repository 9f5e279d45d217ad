#pragma once

#include <string>

#include "Bytes.h"

namespace vtr {

/// The whole content of the regular file at path (UTF-8), in one read. A file that is named in another letter
/// case than it has on disk is still found. Throws file-missing or file-access Errors.
Bytes ReadWholeFile(const std::string &path);
/// The same, but only its first bytes, most of them at most: no more of the file is read.
Bytes ReadStartOfFile(const std::string &path, std::size_t most);
/// The same, but nothing when there is no such file.
Bytes ReadStartOfFileIfThere(const std::string &path, std::size_t most);
Bytes ReadWholeFileIfThere(const std::string &path);
/// The whole content of a file that no honest one of its kind makes larger than so many MiB. Throws a
/// file-too-large Error when it is.
Bytes ReadFileOfAtMost(std::size_t mebibytes, const std::string &path);
/// The same of at most 1 MiB.
Bytes ReadSmallFile(const std::string &path);

}  // namespace vtr
