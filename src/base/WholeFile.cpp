#include "WholeFile.h"

#include <cstdint>
#include <filesystem>
#include <limits>
#include <system_error>

#include "Errors.h"
#include "Paths.h"

namespace vtr {

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

}  // namespace

Bytes ReadWholeFile(const std::string &path) {
    return ReadStartOfFile(path, unlimited);
}

Bytes ReadStartOfFileIfThere(const std::string &path, std::size_t most) {
    return FileExists(path) ? ReadStartOfFile(path, most) : Bytes();
}

Bytes ReadWholeFileIfThere(const std::string &path) {
    return ReadStartOfFileIfThere(path, unlimited);
}

Bytes ReadFileOfAtMost(std::size_t mebibytes, const std::string &path) {
    const std::size_t most = mebibytes << 20;
    // Asks for the size first, so that it does not read a file that is far too large.
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(FilesystemPath(PathOnDisk(path)), unknown);
    if (unknown || size <= most) {
        Bytes bytes = ReadStartOfFile(path, most + 1);
        if (bytes.size() <= most)
            return bytes;
    }
    throw Error(ErrorKind::FileTooLarge, {.file = path},
                "a file of at most " + std::to_string(mebibytes) + " MiB", "a larger one");
}

Bytes ReadSmallFile(const std::string &path) {
    return ReadFileOfAtMost(1, path);
}

}  // namespace vtr
