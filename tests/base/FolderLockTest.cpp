#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "FolderLock.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

TEST(FolderLock, IsHeldByOneAtATimeAndTakenBackWhenItsProcessDies) {
    const TemporaryFolder folder;
    FolderLock first = LockFolder(folder.Path());
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(LockFolder(folder.Path()), nullptr);
    first = nullptr;
    const pid_t child = fork();
    if (child == 0) {
        const FolderLock held = LockFolder(folder.Path());
        _exit(held != nullptr ? 0 : 1);
    }
    int status = 1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_NE(LockFolder(folder.Path()), nullptr);
    EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace vtr
