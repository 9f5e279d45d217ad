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
/// True for '\' and '/'.
bool IsSeparator(char character);
/// The last separator in path, or the system's own when there is none.
char SeparatorOf(std::string_view path);

/// path with the system's own separators. A folder or file that exists only in another letter case (of ASCII
/// letters) gets the name it has on disk. Names of what does not exist stay.
std::string PathOnDisk(std::string_view path);
/// True when there is a file or folder at path, in any letter case. A link counts when it leads to one. What
/// may not be looked at counts too: using it then tells the reason.
bool FileExists(std::string_view path);
/// The absolute path without ".", ".." and doubled separators. A ".." behind a symbolic link, or behind a
/// folder that does not exist, stays, because without it the path could name another file.
std::string CleanAbsolutePath(std::string_view path);
/// The file at the end of a chain of symbolic links, or path itself when it is no link. The file need not
/// exist. Throws a file-access Error when the links go round in a circle.
std::string FollowLinks(const std::string &path);
/// Follows all links. Returns an empty text when the file at path lies in folder or below it, and the file's
/// real path when it does not or when that is unknown. The file need not exist. Throws what FollowLinks
/// throws.
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
