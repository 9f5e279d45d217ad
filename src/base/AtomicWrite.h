#pragma once

#include <functional>
#include <string>

#include "Bytes.h"

namespace vtr {

/// A larger file is not written in place, where its old content is held in memory: the program writes none.
constexpr std::size_t mostMebibytesInPlace = 1024;

/// Replaces the file at path (UTF-8) by bytes, whole or not at all: writes and flushes a temporary file
/// beside it, renames that over the file and flushes the folder. Follows a symbolic link to the real file and
/// keeps an existing file's permissions. Refuses anything that is no regular file. Some folders take no new
/// file (or, on Linux, keep the old one), but the file itself may be read and written. Then this writes into
/// the file and puts the old bytes back if that fails. Throws an Error with the step that failed and the
/// state of the file: as before, replaced (a later step failed), or perhaps damaged (the old bytes could not
/// be put back). Removes the temporary file.
void AtomicWrite(const std::string &path, ConstByteSpan bytes);
/// The same, but the folder is flushed by whoever writes several files into it.
void AtomicWriteWithoutFolder(const std::string &path, ConstByteSpan bytes);
/// Brings what has been made, renamed and removed in folder to the disk. Throws an Error when that fails.
void FlushFolder(const std::string &folder);

/// Gives the file at path its bytes: AtomicWrite, or what stands for it.
using FileWrite = std::function<void(const std::string &path, ConstByteSpan bytes)>;

/// From now on a write beyond the system's limit for a file's size throws an Error. Before, it would end the
/// program.
void LetWritesBeyondTheSizeLimitFail();

}  // namespace vtr
