#include "FileStamp.h"

#include <chrono>
#include <filesystem>
#include <system_error>

#include "Errors.h"
#include "Hash.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

FileStamp StampBySizeAndTime(const std::string &path) {
    const std::filesystem::path file = FilesystemPath(path);
    std::error_code failed;
    const auto size = std::filesystem::file_size(file, failed);
    if (failed)
        return {};
    const auto time = std::filesystem::last_write_time(file, failed);
    if (failed)
        return {};
    const auto since1970 = std::chrono::file_clock::to_sys(time).time_since_epoch();
    return {.size = size,
            .modified = std::chrono::duration_cast<std::chrono::nanoseconds>(since1970).count(),
            .known = 0,
            .hash = 0};
}

FileStamp StampOf(const std::string &path, ConstByteSpan bytes) {
    FileStamp stamp = StampBySizeAndTime(path);
    stamp.known = bytes.size();
    stamp.hash = HashOf(bytes);
    return stamp;
}

bool HasChanged(const FileStamp &stamp, const std::string &path) {
    const bool isKnownWhole = stamp.known != 0 && stamp.known == stamp.size;
    if (isKnownWhole) {  // then reading it tells its size too
        try {
            const Bytes bytes = ReadStartOfFile(path, stamp.size + 1);
            return bytes.size() != stamp.size || HashOf(bytes) != stamp.hash;
        } catch (const Error &) {  // gone, or its size tells
        }
    }
    const FileStamp now = StampBySizeAndTime(path);
    if (now == FileStamp())
        return false;
    if (now.size != stamp.size || stamp.known == 0)
        return now.size != stamp.size || now.modified != stamp.modified;
    if (isKnownWhole)
        return false;
    try {
        return HashOf(ReadStartOfFile(path, stamp.known)) != stamp.hash;
    } catch (const Error &) {
        return false;
    }
}

}  // namespace vtr
