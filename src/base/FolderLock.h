#pragma once

#include <memory>
#include <string>

namespace vtr {

/// Keeps a folder locked as long as it lives. The system takes the lock back when the process dies.
using FolderLock = std::shared_ptr<const void>;

/// Locks folder (UTF-8), which exists; null when somebody else has locked it, in this process or another.
/// Where the system knows no such lock nobody else has it.
FolderLock LockFolder(const std::string &folder);

}  // namespace vtr
