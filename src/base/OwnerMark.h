#pragma once

#include <cstdint>
#include <string>

namespace vtr {

/// A file that shows to other processes that its maker still runs: it is locked, and the system unlocks it
/// when the process ends, however that comes.
class OwnerMark {
  public:
    /// Makes the file at path (UTF-8), which nobody else may make. Throws file-access Errors.
    explicit OwnerMark(const std::string &path);
    OwnerMark(const OwnerMark &) = delete;
    OwnerMark &operator=(const OwnerMark &) = delete;
    /// Removes the file.
    ~OwnerMark();

    /// True when the mark at path is there and its maker, which may be this process, has not ended. Where
    /// files cannot be locked nobody counts as running.
    static bool IsHeld(const std::string &path);

  private:
    std::string path_;
    std::intptr_t file_ = -1;
};

}  // namespace vtr
