#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#include "Errors.h"
#include "Paths.h"

namespace vtr {

namespace {

/// The absolute path in an environment variable; empty when it holds none.
std::string AbsolutePathVariable(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

/// The editor's folder in the one that the variable names, or else in byDefault of the user's home.
std::string UserFolder(const char *variable, const char *byDefault) {
    std::string folder = AbsolutePathVariable(variable);
    if (folder.empty()) {
        std::string home = AbsolutePathVariable("HOME");
        if (home.empty()) {
            const passwd *user = getpwuid(geteuid());
            home = user != nullptr ? user->pw_dir : "/";
        }
        folder = home + byDefault;
    }
    return folder + "/vtr-target-editor/";
}

}  // namespace

std::string ProgramFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        throw Error(ErrorKind::FileAccess, {.file = "/proc/self/exe"},
                    {"finding the program's folder", error.message()});
    return std::string(FolderOf(program.native()));
}

std::string UserConfigFolder() {
    return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::string UserDataFolder() {
    return UserFolder("XDG_DATA_HOME", "/.local/share");
}

bool FolderIsWritable(const std::string &folder) {
    std::error_code error;
    return std::filesystem::is_directory(folder, error) &&
           faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace vtr
