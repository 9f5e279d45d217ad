#include "StoppedSave.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "AtomicWrite.h"
#include "CampaignFiles.h"
#include "Errors.h"
#include "FolderLock.h"
#include "Paths.h"

namespace vtr {

namespace {

std::string NoteIn(const std::string &versionsFolder) {
    return versionsFolder + "saving.txt";
}

/// Not flushed: that the note is there counts even where its text is lost.
bool Write(const std::string &note, const FileNames &files) {
    std::ofstream stream(FilesystemPath(note));
    for (const std::string &file : files)
        stream << file << '\n';
    stream.close();
    return stream.good();
}

}  // namespace

void NoteSave(const std::string &versionsFolder, const FileNames &files) {
    const std::string note = NoteIn(versionsFolder);
    if (!Write(note, files))
        throw Error(ErrorKind::FileAccess, {.file = note},
                    FailedStep{"noting that a save is under way", std::generic_category().message(errno)});
    FlushFolder(versionsFolder);
}

void NoteRest(const std::string &versionsFolder, const FileNames &rest) {
    std::error_code ignored;
    if (rest.empty())
        std::filesystem::remove(FilesystemPath(NoteIn(versionsFolder)), ignored);
    else
        Write(NoteIn(versionsFolder), rest);
}

std::optional<FileNames> NotedFiles(const std::string &versionsFolder) {
    std::ifstream stream(FilesystemPath(NoteIn(versionsFolder)));
    if (!stream)
        return std::nullopt;
    FileNames files;
    for (std::string line; std::getline(stream, line);)
        if (std::ranges::find(campaignFiles, line, &CampaignFile::usualName) != campaignFiles.end())
            files.push_back(line);
    return files;
}

std::optional<FileNames> FilesOfStoppedSave(const std::string &versionsFolder) {
    if (versionsFolder.empty() || !NotedFiles(versionsFolder))
        return std::nullopt;
    const FolderLock lock = LockFolder(versionsFolder);
    // Looked at again: the save that had the lock may be over now.
    return lock == nullptr ? std::nullopt : NotedFiles(versionsFolder);
}

}  // namespace vtr
