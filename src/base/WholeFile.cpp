#include "WholeFile.h"

#include "Paths.h"

namespace vtr {

Bytes ReadWholeFileIfThere(const std::string &path) {
    return FileExists(path) ? ReadWholeFile(path) : Bytes();
}

}  // namespace vtr
