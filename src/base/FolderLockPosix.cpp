#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "DescriptorPosix.h"
#include "FolderLock.h"

namespace vtr {

FolderLock LockFolder(const std::string &folder) {
    const auto opened =
        std::make_shared<const Descriptor>(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const bool isRefused =
        opened->IsOpen() && flock(opened->Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return isRefused ? nullptr : opened;
}

}  // namespace vtr
