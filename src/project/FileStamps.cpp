#include "FileStamps.h"

#include <filesystem>
#include <system_error>

#include "Errors.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

std::string RealPathOf(const std::string &path) {
    std::error_code unknown;
    if (std::filesystem::symlink_status(FilesystemPath(path), unknown).type() ==
        std::filesystem::file_type::regular)
        return path;
    std::string onDisk = PathOnDisk(path);
    try {
        return FollowLinks(onDisk);
    } catch (const Error &) {  // round in a circle: no file can be read or written there
        return onDisk;
    }
}

}  // namespace

KnownFile KnownFileOf(const std::string &path, ConstByteSpan bytes) {
    const std::string realPath = RealPathOf(path);
    return {realPath, StampOf(realPath, bytes)};
}

KnownFile KnownFileBySizeAndTime(const std::string &path) {
    const std::string realPath = RealPathOf(path);
    return {realPath, StampBySizeAndTime(realPath)};
}

KnownFile KnownFileNow(const std::string &path) {
    try {
        return KnownFileOf(path, ReadSmallFile(path));
    } catch (const Error &) {
        return KnownFileBySizeAndTime(path);
    }
}

bool HasChanged(const KnownFile &known, const std::string &path) {
    return known.path == RealPathOf(path) && HasChanged(known.stamp, known.path);
}

}  // namespace vtr
