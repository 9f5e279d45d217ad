#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ErrorThrownBy.h"
#include "OwnerMark.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using testing::IsEmpty;

class OwnerMarkTest : public ::testing::Test {
  protected:
    /// Starts a process that marks path and then waits to be killed; returns when it has marked it.
    pid_t StartOwner() const {
        const pid_t owner = fork();
        if (owner == 0) {
            const OwnerMark mark(path);
            pause();
            _exit(1);
        }
        for (int tries = 0; tries < 5000 && !OwnerMark::IsHeld(path); ++tries)
            usleep(1000);
        return owner;
    }

    const TemporaryFolder folder;
    const std::string path = folder.Path() + "work.owner";
};

TEST_F(OwnerMarkTest, IsHeldAsLongAsItsMakerWantsIt) {
    EXPECT_FALSE(OwnerMark::IsHeld(path));
    {
        const OwnerMark mark(path);
        EXPECT_TRUE(OwnerMark::IsHeld(path));
        EXPECT_THAT(folder.Names(), testing::ElementsAre("work.owner"));
    }
    EXPECT_FALSE(OwnerMark::IsHeld(path));
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(OwnerMarkTest, OfAnotherProcessIsHeldUntilThatIsKilled) {
    const pid_t owner = StartOwner();
    EXPECT_TRUE(OwnerMark::IsHeld(path));
    // Whoever asks does not take it.
    EXPECT_TRUE(OwnerMark::IsHeld(path));
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_FALSE(OwnerMark::IsHeld(path));
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(OwnerMarkTest, PassesOverWhatAKilledProcessOfTheSameNumberLeft) {
    for (int i = 0; i < 1000; ++i)
        folder.Make(".vtr-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp", "");
    const OwnerMark mark(path);
    EXPECT_TRUE(OwnerMark::IsHeld(path));
}

TEST_F(OwnerMarkTest, CannotBeMadeInAFolderThatIsNotThere) {
    const Error error = ErrorThrownBy([this] { const OwnerMark mark(folder.Path() + "none/a.owner"); });
    EXPECT_EQ(error.Step(), "making the lock file");
    EXPECT_EQ(error.File(), folder.Path() + "none/a.owner");
}

}  // namespace
}  // namespace vtr
