#pragma once

#include <cstdint>

namespace vtr {

/// What a file was when it was read or written, by which one tells later whether another program changed it.
struct FileStamp {
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< nanoseconds since 1970
    std::uint64_t hash = 0;     ///< of its bytes

    bool operator==(const FileStamp &) const = default;
};

}  // namespace vtr
