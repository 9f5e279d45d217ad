#pragma once

#include <string_view>

#include "Bytes.h"

namespace vtr {

/// The characters of text as the content of a file.
inline Bytes BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

}  // namespace vtr
