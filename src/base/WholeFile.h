#pragma once

#include <string>

#include "Bytes.h"

namespace vtr {

/// The whole content of the regular file at path (UTF-8), in one read. A file that is named in another letter
/// case than it has on disk is still found. Throws file-missing or file-access Errors.
Bytes ReadWholeFile(const std::string &path);
/// The same, but reads only the first bytes, at most that many.
Bytes ReadStartOfFile(const std::string &path, std::size_t most);
/// The same, but nothing when there is no such file.
Bytes ReadStartOfFileIfThere(const std::string &path, std::size_t most);
Bytes ReadWholeFileIfThere(const std::string &path);
/// The same, but throws a file-too-large Error when the file is larger than that many MiB.
Bytes ReadFileOfAtMost(std::size_t mebibytes, const std::string &path);
/// The same for 1 MiB.
Bytes ReadSmallFile(const std::string &path);

}  // namespace vtr
