#include "KeptWork.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "Errors.h"
#include "Hash.h"
#include "Paths.h"
#include "TemporaryNames.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view workEnding = ".unsaved";
constexpr std::string_view markEnding = ".owner";

std::string Hexadecimal(std::uint64_t number) {
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    const std::string shown(digits.data(), end);
    return std::string(digits.size() - shown.size(), '0') + shown;
}

/// What the names of all work of the project begin with.
std::string NameStart(const std::string &realProject) {
    return Hexadecimal(HashOf(Bytes(realProject.begin(), realProject.end()))) + "-";
}

std::string WorkFolder(const std::string &dataFolder) {
    return dataFolder + "unsaved" + SeparatorOf(dataFolder);
}

/// A path that no work has had before: the number of a process comes again, and so does a moment when the
/// clock is set back.
std::string NewWorkPath(const std::string &dataFolder, const std::string &realProject) {
    std::random_device random;
    return WorkFolder(dataFolder) + NameStart(realProject) +
           Hexadecimal(std::uint64_t{random()} << 32 | random()) + std::string(workEnding);
}

/// Nobody knows what was in a file that was only looked at from outside: no edit rests on it.
bool IsAnother(const FileStamp &then, const FileStamp &now) {
    return then.known != 0 && now.known != 0 && (then.known != now.known || then.hash != now.hash);
}

std::string MarkOf(const std::string &work) {
    return work + std::string(markEnding);
}

}  // namespace

KeptWork::KeptWork(const std::string &dataFolder, const std::string &project)
    : project_(RealProjectPath(project)), path_(NewWorkPath(dataFolder, project_)) {
    Mark();
}

void KeptWork::Mark() {
    if (mark_ && FileExists(MarkOf(path_)))
        return;
    const std::string folder(FolderOf(path_));
    std::error_code error;
    fs::create_directories(FilesystemPath(folder), error);
    if (error)
        throw Error(ErrorKind::FileAccess, {.file = folder}, {"making the folder", error.message()});
    mark_.emplace(MarkOf(path_));
}

std::string RealProjectPath(const std::string &project) {
    const std::string clean = CleanAbsolutePath(PathOnDisk(project));
    std::error_code error;
    const fs::path folder = fs::weakly_canonical(FilesystemPath(FolderOf(clean)), error);
    return error ? clean : PathText(folder / FilesystemPath(FileNameOf(clean)));
}

std::vector<std::string> AbandonedWork(const std::string &dataFolder, const std::string &project) {
    const std::string folder = WorkFolder(dataFolder);
    const std::string start = NameStart(RealProjectPath(project));
    RemoveAbandonedTemporaries(folder);
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    for (fs::directory_iterator entry(FilesystemPath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = PathText(entry->path().filename());
        const std::string path = folder + name;
        std::error_code ignored;
        if (name.ends_with(markEnding) && !OwnerMark::IsHeld(path))
            fs::remove(entry->path(), ignored);
        else if (name.starts_with(start) && name.ends_with(workEnding) && !OwnerMark::IsHeld(MarkOf(path)))
            found.emplace_back(entry->last_write_time(ignored), path);
    }
    std::ranges::sort(found, std::greater());
    std::vector<std::string> paths;
    paths.reserve(found.size());
    for (const auto &[time, path] : found)
        paths.push_back(path);
    return paths;
}

std::vector<StampedFile> StampedFilesOf(const FileStamps &stamps) {
    std::vector<StampedFile> files;
    for (const CampaignFile &file : campaignFiles)
        if (file.write != nullptr)
            files.push_back(
                {std::string(file.usualName), stamps[static_cast<std::size_t>(file.saveBox)].stamp});
    return files;
}

std::vector<std::string> FilesChangedSince(const UnsavedWork &work, const FileStamps &now) {
    std::vector<std::string> changed;
    for (const StampedFile &file : StampedFilesOf(now)) {
        const auto then = std::ranges::find(work.files, file.usualName, &StampedFile::usualName);
        if (then != work.files.end() && IsAnother(then->stamp, file.stamp))
            changed.push_back(file.usualName);
    }
    return changed;
}

std::string SetAside(const std::string &path) {
    const std::string aside = path + ".damaged";
    std::error_code error;
    fs::rename(FilesystemPath(path), FilesystemPath(aside), error);
    return error ? path : aside;
}

}  // namespace vtr
