#include "ProjectFile.h"

#include <algorithm>
#include <array>

#include "AtomicWrite.h"
#include "Errors.h"
#include "KeyValueLines.h"
#include "Paths.h"
#include "Text.h"
#include "WholeFile.h"

namespace vtr {

namespace {

struct ProjectKey {
    std::string_view key;
    std::string ProjectPaths::*value;
};

constexpr std::array<ProjectKey, 14> projectKeys{{
    {"NAME", &ProjectPaths::Name},
    {"MAP", &ProjectPaths::Map},
    {"MAPTM", &ProjectPaths::MapTM},
    {"TARGETS", &ProjectPaths::Targets},
    {"TARNAMES", &ProjectPaths::TarNames},
    {"AIRFIELD", &ProjectPaths::Airfield},
    {"RAILWAY", &ProjectPaths::Railway},
    {"RAILWPT", &ProjectPaths::RailWpt},
    {"RAILLIST", &ProjectPaths::RailList},
    {"ROADWPT", &ProjectPaths::RoadWpt},
    {"ROADLIST", &ProjectPaths::RoadList},
    {"GRIDDATA", &ProjectPaths::GridData},
    {"FRONTLINE", &ProjectPaths::Frontline},
    {"TILESDIR", &ProjectPaths::TilesDir},
}};

bool IsSeparator(char character) {
    return character == '\\' || character == '/';
}

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

void ReadProjectFile(const std::string &path, ProjectPaths &paths, const std::function<void()> &lineRead) {
    if (!FileExists(path))
        AtomicWrite(path, {});
    DecodeProjectFile(ReadWholeFile(path), path, paths, lineRead);
}

void DecodeProjectFile(ConstByteSpan bytes, const std::string &path, ProjectPaths &paths,
                       const std::function<void()> &lineRead) {
    for (const KeyValueLine &line : SplitKeyValueLines(bytes)) {
        if (!line.hasEquals)
            throw Error(ErrorKind::TypeMismatch, {.file = path, .line = line.number}, "a line KEY=value",
                        "\"" + line.text + "\"");
        for (const ProjectKey &known : projectKeys)
            if (line.key == known.key)
                paths.*known.value = line.value;
        lineRead();
    }
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
