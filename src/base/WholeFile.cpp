#include "WholeFile.h"

#include <limits>

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

Bytes ReadSmallFile(const std::string &path) {
    constexpr std::size_t most = 1U << 20;
    Bytes bytes = ReadStartOfFile(path, most + 1);
    if (bytes.size() > most)
        throw Error(ErrorKind::FileTooLarge, {.file = path}, "a file of at most 1 MiB", "a larger one");
    return bytes;
}

}  // namespace vtr
