#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>
#include <system_error>

#include "AtomicWrite.h"
#include "DescriptorPosix.h"
#include "Errors.h"
#include "Paths.h"
#include "TemporaryNames.h"
#include "WholeFile.h"

namespace vtr {

namespace {

/// Deletes the file at the end unless it has been renamed.
class TemporaryName {
  public:
    TemporaryName(int folder, const std::string &name) : folder_(folder), name_(name) {}
    TemporaryName(const TemporaryName &) = delete;
    TemporaryName &operator=(const TemporaryName &) = delete;
    ~TemporaryName() {
        if (!renamed_)
            unlinkat(folder_, name_.c_str(), 0);
    }

    bool RenameTo(const std::string &target) {
        renamed_ = renameat(folder_, name_.c_str(), folder_, target.c_str()) == 0;
        return renamed_;
    }

  private:
    const int folder_;
    const std::string &name_;
    bool renamed_ = false;
};

bool Flush(int file) {
    int result = 0;
    do {
        result = fsync(file);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

bool FlushOpenFolder(int folder) {
    // Some file systems have no flush for folders and say so.
    return Flush(folder) || errno == EINVAL;
}

/// Replaces one file. A step that fails throws an Error with its name.
class Replacement {
  public:
    Replacement(const std::string &path, ConstByteSpan bytes, bool flushesFolder)
        : path_(path), bytes_(bytes), flushesFolder_(flushesFolder), target_(FollowLinks(PathOnDisk(path))) {}

    void Run() {
        LookAtTarget();
        const std::string folderName(FolderOf(target_));
        const Descriptor folder(
            open(folderName.empty() ? "." : folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!folder.IsOpen() && !MayWriteInPlace())
            Fail("opening the folder");
        if (folder.IsOpen() && WriteBeside(folder.Number()))
            return;
        WriteInPlace();
    }

  private:
    [[noreturn]] void Fail(const char *step, FileAfterwards file = FileAfterwards::AsBefore) const {
        const int number = errno;
        throw Error(ErrorKind::FileAccess, {.file = path_},
                    {step, std::generic_category().message(number), file});
    }

    void Check(bool succeeded, const char *step, FileAfterwards file = FileAfterwards::AsBefore) const {
        if (!succeeded)
            Fail(step, file);
    }

    void LookAtTarget() {
        struct stat status {};
        if (lstat(target_.c_str(), &status) != 0) {
            Check(errno == ENOENT, "looking at the file");
            return;
        }
        if (!S_ISREG(status.st_mode))
            throw Error(ErrorKind::FileAccess, {.file = path_}, "a file to replace",
                        S_ISDIR(status.st_mode) ? "a folder" : "a device or a pipe");
        // Renaming asks only for the folder's rights, so it would replace a write-protected file.
        Check(faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) == 0, "asking for leave to write");
        existing_ = status;
    }

    /// True when the folder has just refused and there is a file to write into.
    bool MayWriteInPlace() const {
        return existing_ && (errno == EACCES || errno == EPERM || errno == EROFS);
    }

    /// Replaces the file by way of a temporary one. When the folder refuses that and the file can be written
    /// in place, changes nothing and returns false.
    bool WriteBeside(int folder) {
        std::string name;
        int number = -1;
        do {
            name = NewTemporaryName(static_cast<unsigned long>(getpid()));
            number = openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                            existing_ ? S_IRUSR | S_IWUSR : 0666);
        } while (number < 0 && errno == EEXIST);
        if (number < 0 && MayWriteInPlace())
            return false;
        Descriptor file(number);
        Check(file.IsOpen(), "making the temporary file");
        // Tells other processes that the file is in use. Where this fails, RemoveUnlessInUse fails too.
        (void)!flock(file.Number(), LOCK_EX | LOCK_NB);
        if (!FillAndRename(file, TemporaryName(folder, name)))
            return false;
        Check(!flushesFolder_ || FlushOpenFolder(folder), "flushing the folder to disk",
              FileAfterwards::Replaced);
        return true;
    }

    bool FillAndRename(Descriptor &file, TemporaryName temporary) const {
        if (existing_) {
            // Only an administrator may give files away. Without that the file belongs to the user.
            (void)!fchown(file.Number(), existing_->st_uid, existing_->st_gid);
            const bool given = fchmod(file.Number(), existing_->st_mode & 07777) == 0;
            // Some file systems have no permissions and say so.
            Check(given || errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS,
                  "giving the file's permissions");
        }
        Check(Write(file.Number(), bytes_), "writing the temporary file");
        Check(Flush(file.Number()), "flushing the temporary file to disk");
        Check(file.Close(), "closing the temporary file");
        const bool renamed = temporary.RenameTo(std::string(FileNameOf(target_)));
        Check(renamed || MayWriteInPlace(), "renaming the temporary file over the file");
        return renamed;
    }

    void WriteInPlace() const {
        const Bytes old = ReadFileOfAtMost(mostMebibytesInPlace, path_);
        Descriptor file(open(target_.c_str(), O_WRONLY | O_CLOEXEC));
        Check(file.IsOpen(), "opening the file");
        if (const char *const failed = Overwrite(file.Number(), bytes_)) {
            const int number = errno;
            const bool restored = Overwrite(file.Number(), old) == nullptr;
            errno = number;
            Fail(failed, restored ? FileAfterwards::AsBefore : FileAfterwards::MayBeDamaged);
        }
        Check(file.Close(), "closing the file", FileAfterwards::Replaced);
    }

    /// Writes bytes into the file. Returns the step that failed, null when none did.
    static const char *Overwrite(int file, ConstByteSpan bytes) {
        if (lseek(file, 0, SEEK_SET) != 0 || !Write(file, bytes))
            return "writing the file in place";
        if (ftruncate(file, static_cast<off_t>(bytes.size())) != 0)
            return "setting the file's length in place";
        return Flush(file) ? nullptr : "flushing the file to disk in place";
    }

    static bool Write(int file, ConstByteSpan rest) {
        while (!rest.empty()) {
            const ssize_t count = write(file, rest.data(), rest.size());
            if (count >= 0)
                rest = rest.subspan(static_cast<std::size_t>(count));
            else if (errno != EINTR)
                return false;
        }
        return true;
    }

    const std::string &path_;
    const ConstByteSpan bytes_;
    const bool flushesFolder_;
    const std::string target_;
    std::optional<struct stat> existing_;
};

}  // namespace

void AtomicWrite(const std::string &path, ConstByteSpan bytes) {
    Replacement(path, bytes, true).Run();
}

void AtomicWriteWithoutFolder(const std::string &path, ConstByteSpan bytes) {
    Replacement(path, bytes, false).Run();
}

void FlushFolder(const std::string &folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen() || !FlushOpenFolder(opened.Number()))
        throw Error(ErrorKind::FileAccess, {.file = folder},
                    FailedStep{"flushing the folder to disk", std::generic_category().message(errno)});
}

void LetWritesBeyondTheSizeLimitFail() {
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace vtr
