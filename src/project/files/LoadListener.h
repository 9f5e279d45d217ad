#pragma once

#include <cstddef>
#include <string>

#include "Bytes.h"

namespace vtr {

/// A file that ended before its reader was done with it; what was missing counted as zero.
struct ShortFile {
    std::string path;
    std::size_t found;     ///< bytes
    std::size_t expected;  ///< bytes; 0 when that cannot be told
};

/// Whom the readers tell how far they are and what they passed over.
class LoadListener {
  public:
    virtual ~LoadListener() = default;
    /// Raises the progress value (0 to 100) by step.
    virtual void AddProgress(double step) = 0;
    virtual void FoundShortFile(const ShortFile &file) = 0;
    /// These bytes, which the file at path begins with, have been read of a file that a save replaces.
    virtual void HaveRead(const std::string &, ConstByteSpan) {}
};

}  // namespace vtr
