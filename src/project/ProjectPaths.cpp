#include "ProjectPaths.h"

#include "Text.h"

namespace vtr {

std::string ProjectPaths::PathOf(const std::string &value) const {
    return value.empty() ? std::string() : ProjectDir + Utf8OfProjectText(value);
}

}  // namespace vtr
