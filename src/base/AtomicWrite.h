#pragma once

#include <functional>
#include <string>

#include "Bytes.h"

namespace vtr {

/// Replaces the file at path (UTF-8) by bytes, whole or not at all: a temporary file beside it is written,
/// flushed and renamed over it, then the folder is flushed. Follows a symbolic link to the real file and
/// keeps an existing file's permissions. Where the folder takes no new file (on Linux also where it does not
/// let the old one go), but the file itself may be read and written, it is written in place and gets its old
/// bytes back if that fails. Throws an Error with the step that failed and what became of the file: it is as
/// it was, or replaced although a later step failed, or, when it could not get its old bytes back, perhaps
/// damaged. The temporary is removed. What exists and is no regular file is refused.
void AtomicWrite(const std::string &path, ConstByteSpan bytes);
/// The same, but the folder is flushed by whoever writes several files into it.
void AtomicWriteWithoutFolder(const std::string &path, ConstByteSpan bytes);
/// Brings what has been made, renamed and removed in folder to the disk. Throws an Error when that fails.
void FlushFolder(const std::string &folder);

/// Gives the file at path its bytes: AtomicWrite, or what stands for it.
using FileWrite = std::function<void(const std::string &path, ConstByteSpan bytes)>;

/// From now on a write beyond the size that a file may have for this process fails like any other, instead of
/// ending the program without a word.
void LetWritesBeyondTheSizeLimitFail();

}  // namespace vtr
