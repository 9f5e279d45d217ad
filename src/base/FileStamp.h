#pragma once

#include <cstdint>
#include <string>

#include "Bytes.h"

namespace vtr {

/// What a file was when it was read or written. It shows later whether another program has changed the file.
/// All of it is 0 when there was no file.
struct FileStamp {
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< nanoseconds since 1970
    std::uint64_t known = 0;    ///< the bytes from the file's start that the hash was made of
    std::uint64_t hash = 0;

    bool operator==(const FileStamp &) const = default;
};

/// Of the file at path (UTF-8), whose first bytes these are, just read or written.
FileStamp StampOf(const std::string &path, ConstByteSpan bytes);
/// Of the file at path, into which nobody looks: by its size and time alone.
FileStamp StampBySizeAndTime(const std::string &path);

/// True when the file at path is another than stamp says: by its bytes where stamp knows some, else by its
/// time. Not when it is gone or cannot be read: writing it loses nothing, or fails and says so.
bool HasChanged(const FileStamp &stamp, const std::string &path);

}  // namespace vtr
