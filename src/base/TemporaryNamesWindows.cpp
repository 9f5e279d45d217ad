#include <windows.h>

#include "TemporaryNames.h"

namespace vtr {

void RemoveUnlessInUse(const std::filesystem::path &file) {
    // The process that writes it shares it with nobody: then this fails.
    DeleteFileW(file.c_str());
}

}  // namespace vtr
