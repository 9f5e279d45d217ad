#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "DescriptorPosix.h"
#include "Errors.h"
#include "OwnerMark.h"
#include "Paths.h"
#include "TemporaryNames.h"

namespace vtr {

OwnerMark::OwnerMark(const std::string &path) : path_(path) {
    // It gets its name when it is locked, so that nobody ever sees it unlocked while its maker runs.
    std::string temporary;
    int file = -1;
    do {
        temporary = std::string(FolderOf(path)) + NewTemporaryName(static_cast<unsigned long>(getpid()));
        file =
            openat(AT_FDCWD, temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    } while (file < 0 && errno == EEXIST);
    const bool made = file >= 0;
    if (made)
        (void)!flock(file, LOCK_EX | LOCK_NB);
    if (!made || rename(temporary.c_str(), path.c_str()) != 0) {
        const int number = errno;
        if (made) {
            unlink(temporary.c_str());
            close(file);
        }
        throw Error(ErrorKind::FileAccess, {.file = path_},
                    {"making the lock file", std::generic_category().message(number)});
    }
    file_ = file;
}

OwnerMark::~OwnerMark() {
    unlink(path_.c_str());
    close(static_cast<int>(file_));
}

bool OwnerMark::IsHeld(const std::string &path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    return file.IsOpen() && flock(file.Number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace vtr
