#include "ProjectFile.h"

#include <algorithm>
#include <array>

#include "AtomicWrite.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "KeyValueLines.h"
#include "Paths.h"
#include "Text.h"
#include "WholeFile.h"

namespace vtr {

namespace {

/// The value that key, in upper case, stands for; nullptr: it is not known.
std::string ProjectPaths::*ValueOfKey(std::string_view key) {
    if (key == "NAME")
        return &ProjectPaths::Name;
    if (key == "TILESDIR")
        return &ProjectPaths::TilesDir;
    for (const CampaignFile &file : campaignFiles)
        if (key == UpperAscii(file.key))
            return file.name;
    return nullptr;
}

/// Such text begins with a mark or has a zero byte beside each of its first two letters.
bool IsTextOf16Bits(ConstByteSpan bytes) {
    if (bytes.size() < 4)
        return false;
    const std::array<bool, 4> zero{bytes[0] == 0, bytes[1] == 0, bytes[2] == 0, bytes[3] == 0};
    return (bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF) ||
           zero == std::array{false, true, false, true} || zero == std::array{true, false, true, false};
}

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

/// Only a drive letter makes a path absolute; where the system has none, a leading "/" does.
bool IsAbsoluteTilesDir(std::string_view path) {
    if (path.substr(std::min<std::size_t>(path.size(), 1), 2) == ":\\")
        return true;
#ifdef _WIN32
    return false;
#else
    return path.starts_with('/');
#endif
}

}  // namespace

ProjectFileFacts ReadProjectFile(const std::string &path, ProjectPaths &paths,
                                 const std::function<void()> &lineRead) {
    const bool isMissing = !FileExists(path);
    const std::string_view folder = FolderOf(path);
    if (isMissing && !folder.empty() && !FileExists(folder))
        throw Error(ErrorKind::FileMissing, {.file = path}, "a project file",
                    "no such folder: it has been moved, renamed or removed");
    if (isMissing)
        AtomicWrite(path, {});
    ProjectFileFacts facts = DecodeProjectFile(ReadSmallFile(path), path, paths, lineRead);
    facts.wasMade = isMissing;
    return facts;
}

ProjectFileFacts DecodeProjectFile(ConstByteSpan bytes, const std::string &path, ProjectPaths &paths,
                                   const std::function<void()> &lineRead) {
    if (IsTextOf16Bits(bytes))
        throw Error(ErrorKind::TypeMismatch, {.file = path, .line = 1}, "plain text, one byte a letter",
                    "text of two bytes a letter (\"Unicode\"): save the file as plain text (\"ANSI\")");
    const std::vector<KeyValueLine> lines = SplitKeyValueLines(bytes);
    for (const KeyValueLine &line : lines) {
        if (!line.hasEquals)
            throw Error(ErrorKind::TypeMismatch,
                        {.file = path,
                         .line = line.number,
                         .item = line.text.empty() ? "an empty line, which you can delete" : ""},
                        "a line KEY=value", "\"" + Shortened(line.text) + "\"");
        if (std::string ProjectPaths::*const value = ValueOfKey(line.key))
            paths.*value = line.value;
        lineRead();
    }
    return {.wasMade = false, .hasUtf8Mark = !lines.empty() && lines.front().text.starts_with(utf8Mark)};
}

Bytes EncodeProjectFile(const ProjectPaths &paths) {
    std::vector<std::pair<std::string_view, std::string>> lines{{"Name", paths.Name}};
    for (const CampaignFile &file : campaignFiles)
        lines.emplace_back(file.key, paths.*file.name);
    const bool hasSingleBytes = std::ranges::all_of(
        lines, [](const auto &line) { return SingleByteProjectText(line.second).has_value(); });
    std::string text;
    for (const auto &[key, value] : lines)
        text.append(key).append("=").append(hasSingleBytes ? ProjectTextOfUtf8(value) : value).append("\r\n");
    return {text.begin(), text.end()};
}

void DeriveFolders(const std::string &path, ProjectPaths &paths) {
    paths.ProjectFile = FileNameOf(path);
    paths.ProjectDir = FolderOf(path);
    paths.TilesDir = Utf8OfProjectText(paths.TilesDir);
    if (!IsAbsoluteTilesDir(paths.TilesDir))
        paths.TilesDir.insert(0, paths.ProjectDir);
    if (!paths.TilesDir.empty() && IsSeparator(paths.TilesDir.back()))
        paths.TilesDir.pop_back();
}

}  // namespace vtr
