#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>

#include "TemporaryFolder.h"
#include "TemporaryNames.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

void Age(const fs::path &file, std::chrono::minutes age) {
    fs::last_write_time(file, fs::file_time_type::clock::now() - age);
}

TEST(TemporaryNames, OfOneProcessAreAllDifferent) {
    const std::string first = NewTemporaryName(12);
    EXPECT_THAT(first, testing::StartsWith(".vtr-12-"));
    EXPECT_THAT(first, testing::EndsWith(".tmp"));
    EXPECT_NE(first, NewTemporaryName(12));
}

TEST(AbandonedTemporaries, AreRemovedAfterAnHour) {
    const TemporaryFolder folder;
    Age(folder.Make(NewTemporaryName(4711), "half"), std::chrono::minutes(61));
    Age(folder.Make(".vtr-4711-99999.tmp", "half"), std::chrono::minutes(59));
    RemoveAbandonedTemporaries(folder.Path());
    EXPECT_THAT(folder.Names(), ElementsAre(".vtr-4711-99999.tmp"));
}

TEST(AbandonedTemporaries, AreFoundInAFolderThatIsNamedInAnotherLetterCase) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() + "Campaign");
    Age(folder.Make("Campaign/.vtr-1-2.tmp", ""), std::chrono::minutes(61));
    RemoveAbandonedTemporaries(folder.Path() + "cAMPAIGN\\");
    EXPECT_TRUE(fs::is_empty(folder.Path() + "Campaign"));
}

TEST(AbandonedTemporaries, StayWhileAnotherWritesThem) {
    const TemporaryFolder folder;
    const std::string path = folder.Make(".vtr-1-2.tmp", "half");
    Age(path, std::chrono::minutes(600));
    const int file = open(path.c_str(), O_RDWR);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    RemoveAbandonedTemporaries(folder.Path());
    EXPECT_TRUE(fs::exists(path));
    close(file);
    RemoveAbandonedTemporaries(folder.Path());
    EXPECT_FALSE(fs::exists(path));
}

TEST(AbandonedTemporaries, AreNothingElseThanFilesOfThatName) {
    const TemporaryFolder folder;
    const std::set<std::string> names{".vtr-1.tmp",    ".vtr--2.tmp",  ".vtr-1-.tmp",   ".vtr-1-2.tmp.bak",
                                      ".vtr-1-2x.tmp", ".vtr-x-2.tmp", ".vtr-tmp",      ".vtr-.tmp",
                                      "vtr-1-2.tmp",   "a.tmp",        ".vtr-1-2-3.tmp"};
    for (const std::string &name : names)
        Age(folder.Make(name, "kept"), std::chrono::minutes(600));
    fs::create_directory(folder.Path() + ".vtr-3-4.tmp");
    Age(folder.Path() + ".vtr-3-4.tmp", std::chrono::minutes(600));
    const TemporaryFolder elsewhere;
    Age(elsewhere.Make("real", "kept"), std::chrono::minutes(600));
    fs::create_symlink(elsewhere.Path() + "real", folder.Path() + ".vtr-5-6.tmp");
    const std::set<std::string> before = folder.Names();
    RemoveAbandonedTemporaries(folder.Path());
    EXPECT_EQ(folder.Names(), before);
    EXPECT_EQ(elsewhere.Content("real"), "kept");
}

TEST(AbandonedTemporaries, OfAFolderThatIsNotThereAreNone) {
    const TemporaryFolder folder;
    RemoveAbandonedTemporaries(folder.Path() + "none/");
    EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace vtr
