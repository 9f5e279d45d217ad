#include "TemporaryNames.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string_view>
#include <system_error>

#include "Paths.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view start = ".vtr-";
constexpr std::string_view end = ".tmp";

bool IsNumber(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool IsTemporaryName(std::string_view name) {
    if (!name.starts_with(start) || !name.ends_with(end) || name.size() < start.size() + end.size())
        return false;
    const std::string_view numbers = name.substr(start.size(), name.size() - start.size() - end.size());
    const std::size_t dash = numbers.find('-');
    return dash != std::string_view::npos && IsNumber(numbers.substr(0, dash)) &&
           IsNumber(numbers.substr(dash + 1));
}

}  // namespace

std::string NewTemporaryName(unsigned long process) {
    static std::atomic<unsigned> count{0};
    return std::string(start) + std::to_string(process) + "-" + std::to_string(count++) + std::string(end);
}

void RemoveAbandonedTemporaries(const std::string &folder) {
    const auto anHourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    const fs::path path = folder.empty() ? fs::path(".") : FilesystemPath(PathOnDisk(folder));
    std::error_code error;
    for (fs::directory_iterator entry(path, error), last; !error && entry != last; entry.increment(error)) {
        if (!IsTemporaryName(PathText(entry->path().filename())))
            continue;
        std::error_code unknown;
        if (fs::is_regular_file(entry->symlink_status(unknown)) &&
            entry->last_write_time(unknown) < anHourAgo && !unknown)
            RemoveUnlessInUse(entry->path());
    }
}

}  // namespace vtr
