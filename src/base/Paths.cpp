#include "Paths.h"

#include <algorithm>
#include <system_error>

#include "Errors.h"
#include "Text.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view separators = "\\/";
constexpr char ownSeparator = static_cast<char>(fs::path::preferred_separator);

/// True when something has that name, even a link that leads nowhere.
bool Exists(const std::string &path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(FilesystemPath(path), error));
}

/// The name in folder that equals name apart from upper and lower case. Of several it is the first in the
/// order of their bytes. When there is none it is name itself.
std::string NameOnDisk(const std::string &folder, const std::string &name) {
    if (name.empty() || Exists(folder + name))
        return name;
    const std::string wanted = UpperAscii(name);
    std::string best;
    std::error_code error;
    const fs::path start = folder.empty() ? fs::path(".") : FilesystemPath(folder);
    for (fs::directory_iterator entry(start, error), end; !error && entry != end; entry.increment(error)) {
        const std::string held = PathText(entry->path().filename());
        if (UpperAscii(held) == wanted && (best.empty() || held < best))
            best = held;
    }
    return best.empty() ? name : best;
}

#ifdef _WIN32
constexpr bool systemHasDriveLetters = true;
#else
constexpr bool systemHasDriveLetters = false;
#endif

std::string AbsolutePath(std::string_view path) {
    // A system without drive letters does not count '\' as a separator, but the editor does.
    const bool rooted = !path.empty() && IsSeparator(path.front());
    const fs::path held = FilesystemPath(path);
    std::error_code error;
    const fs::path absolute =
        held.is_absolute() || (rooted && !systemHasDriveLetters) ? held : fs::absolute(held, error);
    return error ? std::string(path) : PathText(absolute);
}

/// True when ".." in folder leads to the folder that is named before it. folder ends in a separator.
bool LeadsBackByName(std::string_view folder) {
    const std::string_view path = folder.substr(0, std::max<std::size_t>(folder.size(), 1) - 1);
    const std::string_view name = FileNameOf(path);
    if (name.empty() || name == ".." || name.ends_with(':'))
        return false;
    std::error_code ignored;
    return fs::is_directory(fs::symlink_status(FilesystemPath(PathOnDisk(path)), ignored));
}

}  // namespace

std::string CleanAbsolutePath(std::string_view path) {
    const std::string absolute = AbsolutePath(path);
    const std::string_view folder = FolderOf(absolute);
    const std::size_t rootSize =
        std::min(folder.find_first_not_of(separators), std::size_t{systemHasDriveLetters ? 2 : 1});
    std::string clean(folder.substr(0, rootSize));
    for (std::string_view rest = folder.substr(clean.size()); !rest.empty();) {
        const std::size_t end = rest.find_first_of(separators);
        const std::string_view name = rest.substr(0, end);
        const bool leadsBack = name == ".." && LeadsBackByName(clean);
        if (leadsBack)
            clean.resize(FolderOf(std::string_view(clean).substr(0, clean.size() - 1)).size());
        else if (!name.empty() && name != "." && !(name == ".." && clean.size() == rootSize))
            clean += rest.substr(0, end + 1);
        rest.remove_prefix(end + 1);
    }
    return clean + std::string(FileNameOf(absolute));
}

bool IsSeparator(char character) {
    return separators.find(character) != std::string_view::npos;
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(FolderOf(path).size());
}

std::string_view FolderOf(std::string_view path) {
    const std::size_t last = path.find_last_of(separators);
    return last == std::string_view::npos ? std::string_view{} : path.substr(0, last + 1);
}

char SeparatorOf(std::string_view path) {
    const std::size_t last = path.find_last_of(separators);
    return last == std::string_view::npos ? ownSeparator : path[last];
}

std::filesystem::path FilesystemPath(std::string_view path) {
    return std::u8string(path.begin(), path.end());
}

std::string PathText(const std::filesystem::path &path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string PathOnDisk(std::string_view path) {
    std::string exact(path);
    if (Exists(exact))
        return exact;
    std::string found;
    while (!path.empty()) {
        const std::size_t end = path.find_first_of(separators);
        found += NameOnDisk(found, std::string(path.substr(0, end)));
        if (end == std::string_view::npos)
            break;
        found += ownSeparator;
        path.remove_prefix(end + 1);
    }
    return found;
}

bool FileExists(std::string_view path) {
    std::error_code ignored;
    return fs::status(FilesystemPath(PathOnDisk(path)), ignored).type() != fs::file_type::not_found;
}

std::string FollowLinks(const std::string &path) {
    constexpr int mostLinks = 40;
    fs::path file = FilesystemPath(path);
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(file, error)); ++links) {
        const fs::path next = links < mostLinks ? fs::read_symlink(file, error) : fs::path();
        if (next.empty())
            throw Error(
                ErrorKind::FileAccess, {.file = path},
                {"following the symbolic link", error ? error.message() : "the links go round in a circle"});
        file = file.parent_path() / next;
    }
    return PathText(file);
}

std::string RealPathOutside(const std::string &folder, const std::string &path) {
    const std::string target = FollowLinks(PathOnDisk(path));
    std::error_code unknown;
    const fs::path real = fs::weakly_canonical(FilesystemPath(target), unknown);
    const fs::path root = fs::canonical(FilesystemPath(PathOnDisk(folder)), unknown);
    const bool isWithin = !unknown && std::ranges::mismatch(root, real).in1 == root.end();
    return isWithin ? std::string() : real.empty() ? target : PathText(real);
}

}  // namespace vtr
