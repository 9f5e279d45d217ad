#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vtr {

// Paths are UTF-8. '\' and '/' both separate folders when a path is read; a path that we build keeps the
// separator of the path it came from, so that a project made on one system opens on the other.

/// The part behind the last separator: "map.bmp" of "C:\maps\map.bmp".
std::string_view FileNameOf(std::string_view path);
/// The part up to and including the last separator; empty when there is none.
std::string_view FolderOf(std::string_view path);
/// True for both.
bool IsSeparator(char character);
/// The separator that path uses: its last one, else the system's own.
char SeparatorOf(std::string_view path);

/// The path as the system wants it: every separator its own, and each folder and file name in the letter case
/// it has on disk when it exists there only in another (ASCII letters). What does not exist at all is given
/// back with the name as asked for.
std::string PathOnDisk(std::string_view path);
/// True unless there is no file or folder at path, in any letter case, or none where a link there leads. What
/// may not be looked at counts as there: using it tells why not.
bool FileExists(std::string_view path);
/// path as an absolute one, without ".", ".." and doubled separators as far as both forms name the same file:
/// a ".." behind a symbolic link, or behind a folder that does not exist, stays.
std::string CleanAbsolutePath(std::string_view path);
/// path, or, when it is a symbolic link, the file at the end of the chain of links, which need not exist.
/// Throws a file-access Error when the links go round in a circle.
std::string FollowLinks(const std::string &path);
/// Where the file at path, which need not exist, really is when that is not in the real folder or below it,
/// or cannot be told; else empty. Throws what FollowLinks throws.
std::string RealPathOutside(const std::string &folder, const std::string &path);
/// path for the standard library's file functions, and back.
std::filesystem::path FilesystemPath(std::string_view path);
std::string PathText(const std::filesystem::path &path);

/// The folder of the running executable, ending in a separator.
std::string ProgramFolder();
/// The user's configuration folder for the editor, ending in a separator; not created.
std::string UserConfigFolder();
/// The user's data folder for the editor, ending in a separator; not created.
std::string UserDataFolder();
/// True when folder exists and a file could be made or replaced in it.
bool FolderIsWritable(const std::string &folder);

}  // namespace vtr
