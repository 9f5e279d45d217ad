#include "CopyProject.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

#include "AtomicWrite.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "MirrorMapPicture.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "SaveFiles.h"
#include "SetProjectKey.h"
#include "Text.h"
#include "WholeFile.h"

namespace vtr {

namespace {

namespace fs = std::filesystem;

void CheckThatItIsEmpty(const std::string &folder) {
    std::error_code error;
    const bool empty = fs::is_empty(FilesystemPath(folder), error);
    if (error)
        throw Error(ErrorKind::FileAccess, {.file = folder},
                    FailedStep{"looking into the folder", error.message()});
    if (!empty)
        throw Error(ErrorKind::FileAccess, {.file = folder}, "an empty folder", "one that holds something");
}

/// The names of the copy's files, that of the project file last.
std::vector<std::string> NamesOf(const ProjectPaths &paths) {
    const std::string projectFile = paths.ProjectDir + paths.ProjectFile;
    const auto refuse = [&projectFile](const char *expected, const std::string &found) {
        throw Error(ErrorKind::TypeMismatch, {.file = projectFile}, expected, "\"" + found + "\"");
    };
    if (paths.Map == "NONE")
        refuse("a project that is loaded", "Map=NONE");
    std::vector<std::string> names;
    const auto add = [&](const std::string &name) {
        const auto isSame = [&](const std::string &other) { return UpperAscii(other) == UpperAscii(name); };
        if (std::any_of(names.begin(), names.end(), isSame))
            refuse("another file name for each key", name);
        names.push_back(name);
    };
    for (const CampaignFile &file : campaignFiles) {
        const std::string name = Utf8OfProjectText(paths.*file.name);
        if (FileNameOf(name) != name || name == "." || name == "..")
            refuse("names of files in the project's folder", name);
        if (!name.empty())
            add(name);
    }
    add(paths.ProjectFile);
    return names;
}

/// The project file's bytes. Changes only what would make the copy load differently: values that come from a
/// project loaded before, and the tiles folder.
Bytes ProjectFileFor(const std::string &folder, const ProjectPaths &paths) {
    const std::string file = paths.ProjectDir + paths.ProjectFile;
    Bytes bytes = ReadSmallFile(file);
    ProjectPaths copied;
    DecodeProjectFile(bytes, file, copied, [] {});
    DeriveFolders(folder + paths.ProjectFile, copied);
    const auto keep = [&](std::string_view key, std::string ProjectPaths::*value) {
        if (copied.*value != paths.*value)
            bytes = WithProjectKey(bytes, key, Utf8OfProjectText(paths.*value));
    };
    keep("Name", &ProjectPaths::Name);
    for (const CampaignFile &campaignFile : campaignFiles)
        keep(campaignFile.key, campaignFile.name);
    keep("TILESDIR", &ProjectPaths::TilesDir);
    return bytes;
}

ProjectCopy FillFolder(const Campaign &campaign, const std::vector<std::string> &names,
                       const std::string &folder, const std::string &programFolder) {
    ProjectCopy copy;
    const ProjectPaths &paths = campaign.paths;
    const Bytes projectFile = ProjectFileFor(folder, paths);
    const std::string map = Utf8OfProjectText(paths.Map);
    for (const std::string &name : names)
        if (name != paths.ProjectFile && FileExists(paths.ProjectDir + name))
            AtomicWrite(folder + name,
                        ReadFileOfAtMost(name == map ? mostMapMebibytes : mostGameFileMebibytes,
                                         paths.ProjectDir + name));
    const auto moved = std::make_unique<Campaign>(campaign);
    moved->paths.ProjectDir = folder;
    SaveBoxes every{};
    every.fill(true);
    const SaveOutcome outcome = SaveFiles(*moved, every, programFolder);
    if (outcome.failure)
        throw Error(*outcome.failure);
    copy.misfit = outcome.misfit;
    AtomicWrite(folder + paths.ProjectFile, projectFile);
    for (const std::string &name : names)
        if (!FileExists(folder + name))
            copy.missing.push_back(name);
    return copy;
}

}  // namespace

ProjectCopy CopyProject(const Campaign &campaign, const std::string &folder,
                        const std::string &programFolder) {
    CheckThatItIsEmpty(folder);
    const std::vector<std::string> names = NamesOf(campaign.paths);
    const auto takeAway = [&] {
        std::error_code ignored;
        for (const std::string &name : names)
            fs::remove(FilesystemPath(folder + name), ignored);
    };
    try {
        return FillFolder(campaign, names, folder, programFolder);
    } catch (const Error &error) {
        takeAway();
        if (error.AfterTheFailure() == FileAfterwards::AsBefore)
            throw;
        // The Error without its FileAfterwards, because takeAway has removed the file.
        throw Error(error.Kind(), {.file = error.File()}, FailedStep{error.Step(), error.Reason()});
    } catch (...) {
        takeAway();
        throw;
    }
}

}  // namespace vtr
