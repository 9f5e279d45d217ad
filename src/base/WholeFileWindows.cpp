#include <windows.h>

#include <algorithm>
#include <memory>
#include <system_error>

#include "Errors.h"
#include "Paths.h"
#include "WholeFile.h"

namespace vtr {

namespace {

[[noreturn]] void ThrowSystemError(const std::string &path, const char *step) {
    const DWORD number = GetLastError();
    const bool missing = number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND;
    throw Error(missing ? ErrorKind::FileMissing : ErrorKind::FileAccess, {.file = path},
                {step, std::system_category().message(static_cast<int>(number))});
}

}  // namespace

Bytes ReadStartOfFile(const std::string &path, std::size_t most) {
    const std::filesystem::path name = FilesystemPath(PathOnDisk(path));
    if (std::error_code error; std::filesystem::is_directory(name, error))
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file", "a folder");
    const HANDLE handle = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        ThrowSystemError(path, "opening the file");
    const std::unique_ptr<void, decltype(&CloseHandle)> file(handle, &CloseHandle);
    if (GetFileType(handle) != FILE_TYPE_DISK)
        throw Error(ErrorKind::FileAccess, {.file = path}, "a file", "a device or a pipe");
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(handle, &size))
        ThrowSystemError(path, "asking for the file's size");

    Bytes bytes(
        static_cast<std::size_t>(std::min<std::uintmax_t>(static_cast<std::uintmax_t>(size.QuadPart), most)));
    std::size_t held = 0;
    while (held < bytes.size()) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - held, 1U << 30));
        DWORD count = 0;
        if (!ReadFile(handle, bytes.data() + held, wanted, &count, nullptr))
            ThrowSystemError(path, "reading the file");
        if (count == 0)
            break;
        held += count;
    }
    bytes.resize(held);
    return bytes;
}

}  // namespace vtr
