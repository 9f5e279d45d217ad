#include <windows.h>

#include <array>
#include <cstdlib>
#include <system_error>

#include "Errors.h"
#include "Paths.h"

namespace vtr {

namespace {

/// The editor's folder in the one that the variable names.
std::string UserFolder(const wchar_t *variable) {
    const wchar_t *folder = _wgetenv(variable);
    return PathText(folder != nullptr ? folder : L".") + "\\vtr-target-editor\\";
}

}  // namespace

std::string ProgramFolder() {
    std::array<wchar_t, 32768> name;
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (length == 0 || length == name.size())
        throw Error(ErrorKind::FileAccess, {},
                    {"finding the program's folder",
                     std::system_category().message(static_cast<int>(GetLastError()))});
    return std::string(FolderOf(PathText(std::filesystem::path(name.data(), name.data() + length))));
}

std::string UserConfigFolder() {
    return UserFolder(L"APPDATA");
}

std::string UserDataFolder() {
    return UserFolder(L"LOCALAPPDATA");
}

bool FolderIsWritable(const std::string &folder) {
    // Many access rights count (of the folder, the user's groups, the system), so only an attempt can tell.
    const std::filesystem::path probe = FilesystemPath(folder) / L".vtr-probe.tmp";
    const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(file);
    return true;
}

}  // namespace vtr
