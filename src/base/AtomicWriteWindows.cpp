#include <windows.h>

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "AtomicWrite.h"
#include "Errors.h"
#include "Paths.h"
#include "TemporaryNames.h"
#include "WholeFile.h"

namespace vtr {

namespace {

[[noreturn]] void Fail(const std::string &path, const char *step,
                       FileAfterwards file = FileAfterwards::AsBefore) {
    const DWORD number = GetLastError();
    throw Error(ErrorKind::FileAccess, {.file = path},
                {step, std::system_category().message(static_cast<int>(number)), file});
}

void Check(bool succeeded, const std::string &path, const char *step,
           FileAfterwards file = FileAfterwards::AsBefore) {
    if (!succeeded)
        Fail(path, step, file);
}

class OpenFile {
  public:
    OpenFile(const std::filesystem::path &name, DWORD disposition)
        : handle_(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                              nullptr)) {}
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;
    ~OpenFile() { Close(); }

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

    bool Write(ConstByteSpan rest) const {
        while (!rest.empty()) {
            const auto wanted = static_cast<DWORD>(std::min<std::size_t>(rest.size(), 1U << 30));
            DWORD count = 0;
            if (!WriteFile(handle_, rest.data(), wanted, &count, nullptr))
                return false;
            rest = rest.subspan(count);
        }
        return true;
    }

    bool Rewind() const { return SetFilePointer(handle_, 0, nullptr, FILE_BEGIN) == 0; }
    bool Truncate() const { return SetEndOfFile(handle_) != 0; }
    bool Flush() const { return FlushFileBuffers(handle_) != 0; }

    bool Close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
    }

  private:
    HANDLE handle_;
};

/// Gives the new file the old one's access rights and attributes. Where there are no rights, or the user may
/// not pass them on, the new file keeps the rights that its folder gives to every file.
void KeepPermissions(const std::filesystem::path &from, const std::filesystem::path &to, DWORD attributes) {
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    Bytes rights(size);
    if (size > 0 && GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    SetFileAttributesW(to.c_str(), attributes);
}

/// Writes bytes into the file. Returns the step that failed, null when none did.
const char *Overwrite(const OpenFile &file, ConstByteSpan bytes) {
    if (!file.Rewind() || !file.Write(bytes))
        return "writing the file in place";
    if (!file.Truncate())
        return "setting the file's length in place";
    return file.Flush() ? nullptr : "flushing the file to disk in place";
}

void WriteInPlace(const std::string &path, const std::filesystem::path &target, ConstByteSpan bytes) {
    const Bytes old = ReadFileOfAtMost(mostMebibytesInPlace, path);
    OpenFile file(target, OPEN_EXISTING);
    Check(file.IsOpen(), path, "opening the file");
    if (const char *const failed = Overwrite(file, bytes)) {
        const DWORD number = GetLastError();
        const bool restored = Overwrite(file, old) == nullptr;
        SetLastError(number);
        Fail(path, failed, restored ? FileAfterwards::AsBefore : FileAfterwards::MayBeDamaged);
    }
    Check(file.Close(), path, "closing the file", FileAfterwards::Replaced);
}

void FillAndRename(const std::string &path, OpenFile &file, const std::filesystem::path &temporary,
                   const std::filesystem::path &target, std::optional<DWORD> attributes,
                   ConstByteSpan bytes) {
    Check(file.Write(bytes), path, "writing the temporary file");
    Check(file.Flush(), path, "flushing the temporary file to disk");
    Check(file.Close(), path, "closing the temporary file");
    if (attributes)
        KeepPermissions(target, temporary, *attributes);
    // The write-through flag makes the call wait until the folder is on the disk too.
    Check(MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH),
          path, "renaming the temporary file over the file");
}

}  // namespace

void AtomicWrite(const std::string &path, ConstByteSpan bytes) {
    const std::filesystem::path target = FilesystemPath(FollowLinks(PathOnDisk(path)));
    std::optional<DWORD> attributes;
    const DWORD held = GetFileAttributesW(target.c_str());
    if (held != INVALID_FILE_ATTRIBUTES)
        attributes = held;
    else
        Check(GetLastError() == ERROR_FILE_NOT_FOUND, path, "looking at the file");
    if (attributes && (held & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0)
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file to replace",
                    (held & FILE_ATTRIBUTE_DIRECTORY) != 0 ? "a folder" : "a device or a pipe");

    // While it is open, no other process can open or remove it.
    std::optional<OpenFile> file;
    std::filesystem::path temporary;
    do {
        temporary = target.parent_path() / NewTemporaryName(GetCurrentProcessId());
        file.emplace(temporary, CREATE_NEW);
    } while (!file->IsOpen() && GetLastError() == ERROR_FILE_EXISTS);
    if (!file->IsOpen() && attributes && GetLastError() == ERROR_ACCESS_DENIED)
        return WriteInPlace(path, target, bytes);
    Check(file->IsOpen(), path, "making the temporary file");
    try {
        FillAndRename(path, *file, temporary, target, attributes, bytes);
    } catch (const Error &) {
        file->Close();
        DeleteFileW(temporary.c_str());
        throw;
    }
}

void AtomicWriteWithoutFolder(const std::string &path, ConstByteSpan bytes) {
    AtomicWrite(path, bytes);
}

void FlushFolder(const std::string &) {
    // Each change of a folder is written through.
}

void LetWritesBeyondTheSizeLimitFail() {
    // They always do on Windows.
}

}  // namespace vtr
