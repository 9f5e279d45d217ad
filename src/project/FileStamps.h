#pragma once

#include <array>
#include <string>

#include "CampaignFiles.h"
#include "FileStamp.h"

namespace vtr {

/// A file of the project as it was when it was last read or written.
struct KnownFile {
    std::string path;  ///< where links lead; empty: it was neither
    FileStamp stamp;

    bool operator==(const KnownFile &) const = default;
};
/// By the index of the file's box in the save dialog.
using FileStamps = std::array<KnownFile, saveBoxTotal>;

/// The file at path, whose first bytes these are, just read or written.
KnownFile KnownFileOf(const std::string &path, ConstByteSpan bytes);
/// The file at path, into which nobody looks.
KnownFile KnownFileBySizeAndTime(const std::string &path);

/// The file at path as it is now, by its bytes where they can be read.
KnownFile KnownFileNow(const std::string &path);

/// True when another program has changed the file at path since it was as known says. A file at another path
/// than that has never been read or written: it has not changed.
bool HasChanged(const KnownFile &known, const std::string &path);

}  // namespace vtr
