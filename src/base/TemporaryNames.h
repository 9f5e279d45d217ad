#pragma once

#include <filesystem>
#include <string>

namespace vtr {

/// A new name for a temporary file of this process: ".vtr-PROCESS-NUMBER.tmp".
std::string NewTemporaryName(unsigned long process);

/// Removes what a killed AtomicWrite has left in folder (UTF-8): files with such a name that have not changed
/// for an hour and that no process is writing. What cannot be removed stays.
void RemoveAbandonedTemporaries(const std::string &folder);

/// Removes the file unless a process is writing it.
void RemoveUnlessInUse(const std::filesystem::path &file);

}  // namespace vtr
