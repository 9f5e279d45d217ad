#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtr {

/// The usual names of files that a save was about to write.
using FileNames = std::vector<std::string>;

/// Notes in the versions folder of a project, which exists, that a save of these files is under way: what
/// another process finds of it when this one dies. The note is on the disk when this is over. Throws an Error
/// when that fails.
void NoteSave(const std::string &versionsFolder, const FileNames &files);
/// Of the noted files only these are still to be written; none: the save is over.
void NoteRest(const std::string &versionsFolder, const FileNames &rest);

/// The files of the note, when there is one; none when its text was lost.
std::optional<FileNames> NotedFiles(const std::string &versionsFolder);
/// The files that a save which stopped half way has not written, so that they do not belong to those that it
/// has. Nothing when there is no such save, or when it is under way in another process.
std::optional<FileNames> FilesOfStoppedSave(const std::string &versionsFolder);

}  // namespace vtr
