#include <windows.h>

#include <system_error>

#include "Errors.h"
#include "OwnerMark.h"
#include "Paths.h"

namespace vtr {

OwnerMark::OwnerMark(const std::string &path) : path_(path) {
    // Nobody else can open it, and it goes away with its maker.
    const HANDLE file = CreateFileW(FilesystemPath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw Error(
            ErrorKind::FileAccess, {.file = path_},
            {"making the lock file", std::system_category().message(static_cast<int>(GetLastError()))});
    file_ = reinterpret_cast<std::intptr_t>(file);
}

OwnerMark::~OwnerMark() {
    CloseHandle(reinterpret_cast<HANDLE>(file_));
}

bool OwnerMark::IsHeld(const std::string &path) {
    const HANDLE file = CreateFileW(FilesystemPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

}  // namespace vtr
