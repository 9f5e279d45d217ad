#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "AtomicWrite.h"
#include "BytesOf.h"
#include "ErrorThrownBy.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// What writing "new" to path throws while the system does as planned.
Error ErrorOfWriting(const std::string &path, std::vector<Fault> faults = {}) {
    const SystemCalls calls(std::move(faults));
    return ErrorThrownBy([&path] { AtomicWrite(path, BytesOf("new")); });
}

/// True when another opening of the file holds a lock of it.
bool IsLocked(const std::string &path) {
    const int file = open(path.c_str(), O_RDONLY);
    EXPECT_GE(file, 0);
    const bool locked = flock(file, LOCK_EX | LOCK_NB) != 0;
    close(file);
    return locked;
}

TEST(AtomicWrite, MakesANewFileOfExactlyTheBytesAndLeavesNothingElse) {
    const TemporaryFolder folder;
    AtomicWrite(folder.Path() + "new.dat", Bytes{0, 13, 10, 26, 255});
    EXPECT_EQ(folder.Content("new.dat"), std::string_view("\0\r\n\x1A\xFF", 5));
    AtomicWrite(folder.Path() + "empty.dat", {});
    EXPECT_EQ(folder.Content("empty.dat"), "");
    EXPECT_THAT(folder.Names(), ElementsAre("empty.dat", "new.dat"));
}

TEST(AtomicWrite, ReplacesALongerFileWholeAndKeepsItsPermissions) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "a much longer content than the new one");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    AtomicWrite(path, BytesOf("short"));
    EXPECT_EQ(folder.Content("a.dat"), "short");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
}

TEST(AtomicWrite, LeavesTheFlushOfTheFolderToWhoeverWritesSeveralFiles) {
    const TemporaryFolder folder;
    {
        const SystemCalls calls;
        AtomicWriteWithoutFolder(folder.Path() + "a.dat", BytesOf("new"));
        EXPECT_EQ(std::ranges::count(calls.Made(), "fsync"), 1);
    }
    EXPECT_EQ(folder.Content("a.dat"), "new");
    {
        const SystemCalls calls;
        FlushFolder(folder.Path());
        EXPECT_THAT(calls.Made(), ElementsAre("open", "fsync", "close"));
    }
    const SystemCalls calls({{"fsync", 1, EIO}});
    EXPECT_EQ(ErrorThrownBy([&] { FlushFolder(folder.Path()); }).Step(), "flushing the folder to disk");
}

TEST(AtomicWrite, ReplacesAFileThatIsNamedInAnotherLetterCase) {
    const TemporaryFolder folder;
    folder.Make("TARGET.DAT", "old");
    AtomicWrite(folder.Path() + "target.dat", BytesOf("new"));
    EXPECT_THAT(folder.Names(), ElementsAre("TARGET.DAT"));
    EXPECT_EQ(folder.Content("TARGET.DAT"), "new");
}

TEST(AtomicWrite, FollowsAChainOfLinksToTheRealFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() + "real");
    folder.Make("real/a.dat", "old");
    fs::create_symlink("real/a.dat", folder.Path() + "second");
    fs::create_symlink(folder.Path() + "second", folder.Path() + "first");
    AtomicWrite(folder.Path() + "first", BytesOf("new"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() + "first"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() + "second"));
    EXPECT_FALSE(fs::is_symlink(folder.Path() + "real/a.dat"));
    EXPECT_EQ(folder.Content("real/a.dat"), "new");
}

TEST(AtomicWrite, MakesTheFileThatADanglingLinkPointsAt) {
    const TemporaryFolder folder;
    fs::create_symlink("real.dat", folder.Path() + "link");
    AtomicWrite(folder.Path() + "link", BytesOf("new"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() + "link"));
    EXPECT_FALSE(fs::is_symlink(folder.Path() + "real.dat"));
    EXPECT_EQ(folder.Content("real.dat"), "new");
}

TEST(AtomicWrite, RefusesLinksThatGoRoundInACircle) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.Path() + "a");
    fs::create_symlink("a", folder.Path() + "b");
    EXPECT_EQ(ErrorOfWriting(folder.Path() + "a").Step(), "following the symbolic link");
    EXPECT_THAT(folder.Names(), ElementsAre("a", "b"));
}

TEST(AtomicWrite, RefusesWhatExistsAndIsNoRegularFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() + "folder");
    ASSERT_EQ(mkfifo((folder.Path() + "pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/null", folder.Path() + "device");
    EXPECT_EQ(ErrorOfWriting(folder.Path() + "folder").Found(), "a folder");
    EXPECT_EQ(ErrorOfWriting(folder.Path() + "pipe").Found(), "a device or a pipe");
    EXPECT_EQ(ErrorOfWriting(folder.Path() + "device").Found(), "a device or a pipe");
    EXPECT_THAT(folder.Names(), ElementsAre("device", "folder", "pipe"));
}

TEST(AtomicWrite, SaysSoWhenTheFolderDoesNotExist) {
    const TemporaryFolder folder;
    folder.Make("file", "old");
    const Error missing = ErrorOfWriting(folder.Path() + "none/a.dat");
    EXPECT_EQ(missing.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(missing.File(), folder.Path() + "none/a.dat");
    EXPECT_EQ(missing.Step(), "opening the folder");
    EXPECT_EQ(missing.Reason(), "No such file or directory");
    EXPECT_EQ(ErrorOfWriting(folder.Path() + "file/a.dat").Reason(), "Not a directory");
}

TEST(AtomicWrite, WritesAndFlushesBeforeItRenamesAndFlushesTheFolderAfterwards) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    const SystemCalls calls;
    AtomicWrite(path, BytesOf("new"));
    EXPECT_THAT(calls.Made(), ElementsAre("lstat", "open", "openat", "fchown", "fchmod", "write", "fsync",
                                          "close", "renameat", "fsync", "close"));
}

TEST(AtomicWrite, NamesTheStepThatFailsLeavesTheOldFileAndNoTemporary) {
    struct Case {
        Fault fault;
        const char *step;
    };
    const std::vector<Case> cases{
        {{"lstat", 1, EIO}, "looking at the file"},
        {{"open", 1, EIO}, "opening the folder"},
        {{"openat", 1, EIO}, "making the temporary file"},
        {{"fchmod", 1, EIO}, "giving the file's permissions"},
        {{"write", 1, EIO}, "writing the temporary file"},
        {{"fsync", 1, EIO}, "flushing the temporary file to disk"},
        {{"close", 1, EIO}, "closing the temporary file"},
        {{"renameat", 1, EIO}, "renaming the temporary file over the file"},
    };
    for (const Case &failing : cases) {
        const TemporaryFolder folder;
        const std::string path = folder.Make("a.dat", "the old content");
        const Error error = ErrorOfWriting(path, {failing.fault});
        EXPECT_EQ(error.Kind(), ErrorKind::FileAccess) << failing.step;
        EXPECT_EQ(error.File(), path);
        EXPECT_EQ(error.Step(), failing.step);
        EXPECT_EQ(error.AfterTheFailure(), FileAfterwards::AsBefore) << failing.step;
        EXPECT_EQ(error.Reason(), "Input/output error");
        EXPECT_EQ(folder.Content("a.dat"), "the old content") << failing.step;
        EXPECT_THAT(folder.Names(), ElementsAre("a.dat")) << failing.step;
    }
}

TEST(AtomicWrite, MakesNoFileWhereThereWasNoneWhenAStepFails) {
    for (const char *call : {"lstat", "open", "openat", "write", "fsync", "close", "renameat"}) {
        const TemporaryFolder folder;
        ErrorOfWriting(folder.Path() + "a.dat", {{call, 1, EIO}});
        EXPECT_TRUE(folder.Names().empty()) << call;
    }
}

TEST(AtomicWrite, SaysThatTheFileIsReplacedWhenOnlyTheFlushOfTheFolderFails) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    const Error error = ErrorOfWriting(path, {{"fsync", 2, EIO}});
    EXPECT_EQ(error.Step(), "flushing the folder to disk");
    EXPECT_TRUE(error.FileReplaced());
    EXPECT_EQ(folder.Content("a.dat"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
}

TEST(AtomicWrite, AcceptsAFileSystemThatHasNoFlushForFolders) {
    const TemporaryFolder folder;
    const SystemCalls calls({{"fsync", 2, EINVAL}});
    AtomicWrite(folder.Path() + "a.dat", BytesOf("new"));
    EXPECT_EQ(folder.Content("a.dat"), "new");
}

TEST(AtomicWrite, LeavesTheOldFileWhenTheDiskIsFullHalfWay) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    const Error error = ErrorOfWriting(path, {{"write", 1, 0, 2}, {"write", 2, ENOSPC}});
    EXPECT_EQ(error.Step(), "writing the temporary file");
    EXPECT_EQ(error.Reason(), "No space left on device");
    EXPECT_EQ(folder.Content("a.dat"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
}

TEST(AtomicWrite, GoesOnAfterShortWritesAndInterruptions) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    const SystemCalls calls({{"write", 1, 0, 3},
                             {"write", 2, EINTR},
                             {"write", 3, 0, 1},
                             {"fsync", 1, EINTR},
                             {"fsync", 3, EINTR},
                             {"close", 1, EINTR}});
    AtomicWrite(path, BytesOf("all of the new content"));
    EXPECT_EQ(folder.Content("a.dat"), "all of the new content");
}

TEST(AtomicWrite, TakesAnotherTemporaryNameWhenOneIsTaken) {
    const TemporaryFolder folder;
    const SystemCalls calls({{"openat", 1, EEXIST}, {"openat", 2, EEXIST}});
    AtomicWrite(folder.Path() + "a.dat", BytesOf("new"));
    EXPECT_EQ(folder.Content("a.dat"), "new");
}

TEST(AtomicWrite, KeepsTheOwnerWhenItMayAndGoesOnWhenItMayNot) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    {
        const SystemCalls calls({{"fchown", 1, EPERM}});
        AtomicWrite(path, BytesOf("new"));
    }
    EXPECT_EQ(folder.Content("a.dat"), "new");
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can give a file away";
    ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
    AtomicWrite(path, BytesOf("newer"));
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 2345U);
}

TEST(AtomicWrite, GoesOnWhereTheFileSystemHasNoPermissions) {
    for (const int refusal : {EPERM, EOPNOTSUPP, ENOSYS}) {
        const TemporaryFolder folder;
        const std::string path = folder.Make("a.dat", "old");
        const SystemCalls calls({{"fchmod", 1, refusal}});
        AtomicWrite(path, BytesOf("new"));
        EXPECT_EQ(folder.Content("a.dat"), "new") << refusal;
        EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
    }
}

TEST(AtomicWrite, FailsWhereTheFileWouldExceedTheSizeLimitAndLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "old");
    const auto signalBefore = std::signal(SIGXFSZ, SIG_DFL);
    LetWritesBeyondTheSizeLimitFail();
    struct rlimit before {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const struct rlimit twoBytes { 2, before.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &twoBytes), 0);
    const Error error = ErrorOfWriting(path);
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_EQ(error.Step(), "writing the temporary file");
    EXPECT_EQ(error.Reason(), "File too large");
    EXPECT_EQ(folder.Content("a.dat"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("a.dat"));
}

TEST(AtomicWrite, LocksItsTemporaryFileWhileItIsInUse) {
    const TemporaryFolder folder;
    bool wasLocked = false;
    const SystemCalls calls({{.call = "fsync", .lookOn = [&] {
                                  for (const std::string &name : folder.Names())
                                      wasLocked = IsLocked(folder.Path() + name);
                              }}});
    AtomicWrite(folder.Path() + "a.dat", BytesOf("new"));
    EXPECT_TRUE(wasLocked);
    EXPECT_FALSE(IsLocked(folder.Path() + "a.dat"));
}

TEST(AtomicWrite, GivesANewFileThePermissionsThatTheUserHasChosenForNewFiles) {
    const TemporaryFolder folder;
    const mode_t before = umask(0027);
    AtomicWrite(folder.Path() + "a.dat", BytesOf("new"));
    umask(before);
    EXPECT_EQ(fs::status(folder.Path() + "a.dat").permissions(), fs::perms(0640));
}

/// A folder that takes no new files with a file in it, both of them the ordinary user's.
class LockedFolder {
  public:
    LockedFolder() {
        fs::permissions(folder_.Path(), fs::perms(0755));
        fs::create_directory(folder_.Path() + "locked");
        path = folder_.Make("locked/a.dat", "the old content");
        OrdinaryUser::Give(path);
        OrdinaryUser::Give(folder_.Path() + "locked");
        Lock(fs::perms(0555));
    }
    ~LockedFolder() { Lock(fs::perms(0755)); }

    void Lock(fs::perms permissions) const { fs::permissions(folder_.Path() + "locked", permissions); }
    std::string Content() const { return folder_.Content("locked/a.dat"); }
    fs::path Folder() const { return folder_.Path() + "locked"; }

    std::string path;

  private:
    TemporaryFolder folder_;
};

TEST(AtomicWrite, WritesInPlaceWhereTheFolderTakesNoNewFile) {
    for (const auto permissions : {fs::perms(0555), fs::perms(0111)}) {
        const LockedFolder locked;
        locked.Lock(permissions);
        const auto before = fs::last_write_time(locked.path);
        struct stat old {};
        struct stat fresh {};
        ASSERT_EQ(stat(locked.path.c_str(), &old), 0);
        {
            const OrdinaryUser user;
            AtomicWrite(locked.path, BytesOf("new"));
        }
        ASSERT_EQ(stat(locked.path.c_str(), &fresh), 0);
        EXPECT_EQ(locked.Content(), "new");
        EXPECT_EQ(fresh.st_ino, old.st_ino);
        EXPECT_GE(fs::last_write_time(locked.path), before);
    }
}

TEST(AtomicWrite, GivesTheFileItsOldContentBackWhenWritingInPlaceFails) {
    // Opened are the folder, the file to read its old content and the file to write it.
    const std::vector<std::pair<std::vector<Fault>, const char *>> cases{
        {{{"open", 3, ENOSPC}}, "opening the file"},
        {{{"write", 1, 0, 2}, {"write", 2, ENOSPC}}, "writing the file in place"},
        {{{"ftruncate", 1, ENOSPC}}, "setting the file's length in place"},
        {{{"fsync", 1, ENOSPC}}, "flushing the file to disk in place"},
    };
    for (const auto &[faults, step] : cases) {
        const LockedFolder locked;
        {
            const OrdinaryUser user;
            const Error error = ErrorOfWriting(locked.path, faults);
            EXPECT_EQ(error.Step(), step);
            EXPECT_EQ(error.AfterTheFailure(), FileAfterwards::AsBefore) << step;
            EXPECT_EQ(error.Reason(), "No space left on device");
        }
        EXPECT_EQ(locked.Content(), "the old content") << step;
    }
}

TEST(AtomicWrite, SaysThatTheFileMayBeDamagedWhenTheOldContentCannotBeGivenBackEither) {
    const LockedFolder locked;
    const OrdinaryUser user;
    const Error error = ErrorOfWriting(locked.path, {{"write", 1, ENOSPC}, {"write", 2, EIO}});
    EXPECT_EQ(error.Step(), "writing the file in place");
    EXPECT_EQ(error.AfterTheFailure(), FileAfterwards::MayBeDamaged);
    EXPECT_EQ(error.Reason(), "No space left on device");
}

TEST(AtomicWrite, SaysThatTheFileIsWrittenWhenOnlyClosingItFailsInPlace) {
    const LockedFolder locked;
    {
        const OrdinaryUser user;
        // The first file that is closed is the one that the old content was read from.
        const Error error = ErrorOfWriting(locked.path, {{"close", 2, EIO}});
        EXPECT_EQ(error.Step(), "closing the file");
        EXPECT_TRUE(error.FileReplaced());
        EXPECT_EQ(error.Reason(), "Input/output error");
    }
    EXPECT_EQ(locked.Content(), "new");
}

TEST(AtomicWrite, NamesTheLinkAskedForWhenItsFileCannotBeReadToBeWrittenInPlace) {
    const LockedFolder locked;
    const TemporaryFolder elsewhere;
    fs::permissions(elsewhere.Path(), fs::perms(0755));
    fs::create_symlink(locked.path, elsewhere.Path() + "link");
    const OrdinaryUser user;
    EXPECT_EQ(ErrorOfWriting(elsewhere.Path() + "link", {{"open", 2, EIO}}).File(),
              elsewhere.Path() + "link");
}

TEST(AtomicWrite, LeavesAFileThatCannotBeReadAsItIsWhenItWouldHaveToWriteInPlace) {
    const LockedFolder locked;
    fs::permissions(locked.path, fs::perms(0200));
    {
        const OrdinaryUser user;
        EXPECT_EQ(ErrorOfWriting(locked.path).Reason(), "Permission denied");
    }
    EXPECT_EQ(locked.Content(), "the old content");
}

TEST(AtomicWrite, ReadsNoFileInPlaceThatIsTooLargeToBeGivenBack) {
    const LockedFolder locked;
    fs::resize_file(locked.path, std::uintmax_t{4} << 30);
    const OrdinaryUser user;
    const SystemCalls calls;
    const Error error = ErrorThrownBy([&] { AtomicWrite(locked.path, BytesOf("new")); });
    EXPECT_EQ(error.Kind(), ErrorKind::FileTooLarge);
    EXPECT_EQ(error.File(), locked.path);
    EXPECT_EQ(calls.BytesRead(), 0U);
    EXPECT_EQ(fs::file_size(locked.path), std::uintmax_t{4} << 30);
}

TEST(AtomicWrite, WritesInPlaceWhereTheFolderDoesNotLetTheOldFileGo) {
    const TemporaryFolder folder;
    const std::string path = folder.Make("a.dat", "the old content");
    const fs::path link = folder.Path() + "link";
    fs::create_hard_link(path, link);
    {
        const SystemCalls calls({{"renameat", 1, EPERM}});
        AtomicWrite(path, BytesOf("new"));
    }
    EXPECT_EQ(folder.Content("a.dat"), "new");
    EXPECT_EQ(folder.Content("link"), "new") << "it is the same file";
    EXPECT_THAT(folder.Names(), ElementsAre("a.dat", "link"));
}

TEST(AtomicWrite, RefusesANewFileWhereTheFolderTakesNone) {
    const LockedFolder locked;
    const OrdinaryUser user;
    const Error error = ErrorOfWriting(locked.Folder() / "b.dat");
    EXPECT_EQ(error.Step(), "making the temporary file");
    EXPECT_EQ(error.Reason(), "Permission denied");
}

TEST(AtomicWrite, RefusesAWriteProtectedFileAlthoughItsFolderWouldAllowIt) {
    const LockedFolder locked;
    locked.Lock(fs::perms(0755));
    fs::permissions(locked.path, fs::perms(0444));
    {
        const OrdinaryUser user;
        const Error error = ErrorOfWriting(locked.path);
        EXPECT_EQ(error.Step(), "asking for leave to write");
        EXPECT_EQ(error.Reason(), "Permission denied");
    }
    EXPECT_EQ(locked.Content(), "the old content");
}

}  // namespace
}  // namespace vtr
