#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Campaign.h"
#include "FileStamp.h"

namespace vtr {

/// A file of the project as it was when the tables were read from it or written to it.
struct StampedFile {
    std::string usualName;  ///< "TARGET.DAT"
    FileStamp stamp;

    bool operator==(const StampedFile &) const = default;
};

/// What is kept beside the tables of a campaign that has unsaved edits.
struct UnsavedWork {
    std::string project;      ///< the path of the project file (UTF-8)
    std::int64_t keptAt = 0;  ///< seconds since 1970
    std::vector<StampedFile> files;

    bool operator==(const UnsavedWork &) const = default;
};

/// A file of unsaved work: work and all tables of campaign that can be edited, to the last bit. The game's
/// own files cannot hold every edit; this one can.
Bytes EncodeUnsavedWork(const UnsavedWork &work, const Campaign &campaign);

/// True for a file of unsaved work that is not damaged as far as one can see, but has another format.
bool IsOfAnotherVersion(ConstByteSpan bytes);

/// Takes the tables over into campaign and gives the rest; path is for messages. Throws an Error, with
/// campaign as it was, when bytes is not whole or of another version.
UnsavedWork DecodeUnsavedWork(ConstByteSpan bytes, const std::string &path, Campaign &campaign);

}  // namespace vtr
