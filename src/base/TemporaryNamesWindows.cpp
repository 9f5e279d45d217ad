#include <windows.h>

#include "TemporaryNames.h"

namespace vtr {

void RemoveUnlessInUse(const std::filesystem::path &file) {
    // This fails while a process writes the file, because that process does not share it.
    DeleteFileW(file.c_str());
}

}  // namespace vtr
