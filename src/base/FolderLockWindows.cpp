#include <windows.h>

#include "FolderLock.h"
#include "Paths.h"

namespace vtr {

FolderLock LockFolder(const std::string &folder) {
    // A file in it that nobody else can open, and that goes away with its handle.
    const HANDLE file =
        CreateFileW(FilesystemPath(folder + "/lock").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_SHARING_VIOLATION)
        return nullptr;
    return {file, [](HANDLE opened) {
                if (opened != INVALID_HANDLE_VALUE)
                    CloseHandle(opened);
            }};
}

}  // namespace vtr
