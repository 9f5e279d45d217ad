#pragma once

#include <string>
#include <string_view>

#include "Bytes.h"

namespace vtr {

/// The project file in bytes with value (UTF-8) as that key's value: in the last line of the key, which is
/// the one that counts, else in a new line at the end. The value is written in single-byte text unless only
/// UTF-8 reads back to it or the file is in UTF-8. All other bytes are kept, so that its line may stand in
/// UTF-8 among single-byte ones.
Bytes WithProjectKey(ConstByteSpan bytes, std::string_view key, const std::string &value);

}  // namespace vtr
