#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "DescriptorPosix.h"
#include "Errors.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

[[noreturn]] void ThrowSystemError(const std::string &path, const char *step) {
    const int number = errno;
    const bool missing = number == ENOENT || number == ENOTDIR;
    throw Error(missing ? ErrorKind::FileMissing : ErrorKind::FileAccess, {.file = path},
                {step, std::generic_category().message(number)});
}

int OpenToRead(const std::string &path) {
    // Without O_NONBLOCK the call would wait for the other end of a pipe.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    const int file = open(path.c_str(), flags);
    return file < 0 && errno == ENOENT ? open(PathOnDisk(path).c_str(), flags) : file;
}

}  // namespace

Bytes ReadStartOfFile(const std::string &path, std::size_t most) {
    const Descriptor file(OpenToRead(path));
    if (!file.IsOpen())
        ThrowSystemError(path, "opening the file");
    struct stat status {};
    if (fstat(file.Number(), &status) != 0)
        ThrowSystemError(path, "asking for the file's size");
    if (!S_ISREG(status.st_mode))
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file",
                    S_ISDIR(status.st_mode) ? "a folder" : "a device or a pipe");

    Bytes bytes(static_cast<std::size_t>(
        std::min<std::uintmax_t>(static_cast<std::uintmax_t>(status.st_size), most)));
    std::size_t held = 0;
    while (held < bytes.size()) {
        const ssize_t count = read(file.Number(), bytes.data() + held, bytes.size() - held);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            ThrowSystemError(path, "reading the file");
        if (count == 0)
            break;
        held += static_cast<std::size_t>(count);
    }
    bytes.resize(held);
    return bytes;
}

}  // namespace vtr
