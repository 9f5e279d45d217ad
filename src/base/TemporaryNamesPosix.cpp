#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "DescriptorPosix.h"
#include "TemporaryNames.h"

namespace vtr {

void RemoveUnlessInUse(const std::filesystem::path &file) {
    const Descriptor opened(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (opened.IsOpen() && flock(opened.Number(), LOCK_EX | LOCK_NB) == 0)
        unlink(file.c_str());
}

}  // namespace vtr
