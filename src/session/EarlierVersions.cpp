#include "EarlierVersions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <functional>
#include <iterator>
#include <system_error>
#include <utility>

#include "AtomicWrite.h"
#include "Hash.h"
#include "KeptWork.h"
#include "Paths.h"
#include "TemporaryNames.h"
#include "WholeFile.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;
using Milliseconds = std::chrono::sys_time<std::chrono::milliseconds>;

/// Of the files that are kept; none comes near it.
constexpr std::size_t mostMebibytes = 64;

/// "20261121-140312-123", in the universal time, so that the names sort by age.
std::string NameOfSet(Milliseconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::string name;
    const auto add = [&name](std::int64_t number, std::size_t digits) {
        const std::string text = std::to_string(number);
        name += std::string(digits - std::min(digits, text.size()), '0') + text;
    };
    add(static_cast<int>(date.year()), 4);
    add(static_cast<unsigned>(date.month()), 2);
    add(static_cast<unsigned>(date.day()), 2);
    name += '-';
    add(clock.hours().count(), 2);
    add(clock.minutes().count(), 2);
    add(clock.seconds().count(), 2);
    name += '-';
    add(clock.subseconds().count(), 3);
    return name;
}

/// The time that a set's name tells; nothing when it is no such name.
std::optional<std::int64_t> TimeOfSet(const std::string &name) {
    const auto number = [&name](std::size_t first, std::size_t digits) {
        int value = 0;
        std::from_chars(name.data() + first, name.data() + first + digits, value);
        return value;
    };
    constexpr std::size_t size = 19;
    if (name.size() != size)
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(number(0, 4)),
                                           std::chrono::month(static_cast<unsigned>(number(4, 2))),
                                           std::chrono::day(static_cast<unsigned>(number(6, 2))));
    const auto clock = std::chrono::hours(number(9, 2)) + std::chrono::minutes(number(11, 2)) +
                       std::chrono::seconds(number(13, 2)) + std::chrono::milliseconds(number(16, 3));
    // What is not written like this is somebody else's.
    if (!date.ok() || NameOfSet(std::chrono::sys_days(date) + clock) != name)
        return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(std::chrono::sys_days(date) + clock)
        .time_since_epoch()
        .count();
}

void CheckFolder(const std::error_code &error, const std::string &folder) {
    if (error)
        throw Error(ErrorKind::FileAccess, {.file = folder},
                    FailedStep{"making the folder", error.message()});
}

/// Makes a folder that there was not before.
std::string MakeSet(const std::string &versionsFolder) {
    auto time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    for (;; time += std::chrono::milliseconds(1)) {
        const std::string folder = versionsFolder + NameOfSet(time);
        std::error_code error;
        const bool isNew = fs::create_directory(FilesystemPath(folder), error);
        CheckFolder(error, folder);
        if (isNew)
            return folder + SeparatorOf(versionsFolder);
    }
}

struct ShortFiles : LoadListener {
    std::vector<ShortFile> found;

    void AddProgress(double) override {}
    void FoundShortFile(const ShortFile &file) override { found.push_back(file); }
};

std::string RealProjectOf(const ProjectPaths &paths) {
    return RealProjectPath(paths.ProjectDir + paths.ProjectFile);
}

}  // namespace

std::string VersionsFolderOf(const std::string &dataFolder, const ProjectPaths &paths) {
    if (dataFolder.empty())
        return {};
    constexpr std::size_t mostLetters = 40;
    const std::string project = RealProjectOf(paths);
    std::string name = paths.ProjectFile.substr(0, std::min(paths.ProjectFile.rfind('.'), mostLetters));
    for (char &letter : name)
        if ((letter < '0' || letter > '9') && (letter < 'A' || letter > 'Z') &&
            (letter < 'a' || letter > 'z'))
            letter = '_';
    std::array<char, 16> digits{};
    const std::uint64_t hash = HashOf(Bytes(project.begin(), project.end()));
    char *const end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16).ptr;
    return dataFolder + "versions/" + name + "-" + std::string(digits.data(), end) + "/";
}

void MakeVersionsFolder(const std::string &dataFolder, const ProjectPaths &paths) {
    const std::string folder = VersionsFolderOf(dataFolder, paths);
    std::error_code error;
    const bool isNew = fs::create_directories(FilesystemPath(FolderOf(folder)).parent_path(), error);
    CheckFolder(error, folder);
    if (!isNew)
        return;
    // For somebody who looks for the files by hand.
    const std::string text = "Earlier versions of the files of " + RealProjectOf(paths) + "\n";
    AtomicWrite(folder + "project.txt", Bytes(text.begin(), text.end()));
    FlushFolder(dataFolder + "versions/");
    FlushFolder(dataFolder);
}

std::vector<VersionSet> VersionSetsIn(const std::string &versionsFolder) {
    std::vector<VersionSet> sets;
    std::error_code error;
    for (fs::directory_iterator entry(FilesystemPath(versionsFolder), error), last; !error && entry != last;
         entry.increment(error)) {
        const std::string name = PathText(entry->path().filename());
        const std::optional<std::int64_t> time = TimeOfSet(name);
        std::error_code unknown;
        if (!time || !fs::is_directory(entry->symlink_status(unknown)))
            continue;
        VersionSet set{versionsFolder + name + SeparatorOf(versionsFolder), *time, {}};
        for (const CampaignFile &file : campaignFiles)
            if (file.write != nullptr &&
                fs::is_regular_file(FilesystemPath(set.folder + std::string(file.usualName)), unknown))
                set.files.push_back(&file);
        if (!set.files.empty())
            sets.push_back(std::move(set));
    }
    std::ranges::sort(sets, std::greater(), &VersionSet::folder);
    return sets;
}

void KeepVersions(const std::string &versionsFolder, const ProjectPaths &paths,
                  const std::vector<const CampaignFile *> &files, KeptVersions &kept) {
    std::vector<const CampaignFile *> present;
    std::ranges::copy_if(files, std::back_inserter(present), [&paths](const CampaignFile *file) {
        std::error_code unknown;
        return fs::is_regular_file(FilesystemPath(PathOnDisk(paths.PathOf(paths.*file->name))), unknown);
    });
    if (present.empty())
        return;
    const auto isInSet = [&kept](const CampaignFile *file) {
        return FileExists(kept.set + std::string(file->usualName));
    };
    if (kept.set.empty() || std::ranges::any_of(present, isInSet))
        kept.set = MakeSet(versionsFolder);
    std::error_code error;
    fs::create_directory(FilesystemPath(kept.set), error);  // others may have removed it as too old
    CheckFolder(error, kept.set);
    for (const CampaignFile *file : present)
        AtomicWriteWithoutFolder(kept.set + std::string(file->usualName),
                                 ReadFileOfAtMost(mostMebibytes, paths.PathOf(paths.*file->name)));
    FlushFolder(kept.set);
    FlushFolder(versionsFolder);
    for (const CampaignFile *file : present)
        kept.files[file->SaveBox()] = true;
}

void RemoveSet(const std::string &set) {
    std::error_code ignored;
    for (const CampaignFile &file : campaignFiles)
        if (file.write != nullptr)
            fs::remove(FilesystemPath(set + std::string(file.usualName)), ignored);
    RemoveAbandonedTemporaries(set);
    // Stays where it holds anything else.
    fs::remove(FilesystemPath(set), ignored);
}

void RemoveOldSets(const std::string &versionsFolder, const std::string &current) {
    const std::vector<VersionSet> sets = VersionSetsIn(versionsFolder);
    for (std::size_t i = versionSetTotal; i < sets.size(); ++i)
        if (sets[i].folder != current)
            RemoveSet(sets[i].folder);
}

TakenBack ReadVersions(const VersionSet &set, const std::vector<const CampaignFile *> &files,
                       const Campaign &campaign) {
    TakenBack taken{std::make_unique<Campaign>(campaign), {}, {}};
    ShortFiles listener;
    for (const CampaignFile *file : filesInReadingOrder) {
        if (std::ranges::find(files, file) == files.end())
            continue;
        auto attempt = std::make_unique<Campaign>(*taken.campaign);
        if (file->name == &ProjectPaths::Railway)
            attempt->RailwayLineCount = attempt->firstDisabledRailwayLine = 0;  // as a load begins
        try {
            file->read(set.folder + std::string(file->usualName), *attempt, listener);
        } catch (const Error &error) {
            taken.damaged.push_back(error);
            continue;
        }
        for (TargetRecord &target : attempt->TargetTable)
            if (target.code < targetNameTotal)
                target.name = attempt->TargetNameTable[target.code];
        taken.campaign = std::move(attempt);
    }
    taken.shortFiles = std::move(listener.found);
    return taken;
}

}  // namespace vtr
