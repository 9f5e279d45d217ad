#include "SetProjectKey.h"

#include <algorithm>

#include "KeyValueLines.h"
#include "Text.h"

namespace vtr {

namespace {

bool IsUtf8BeyondAscii(std::string_view text) {
    return IsUtf8(text) && std::ranges::any_of(text, [](char character) {
               return static_cast<std::uint8_t>(character) > 127;
           });
}

}  // namespace

Bytes WithProjectKey(ConstByteSpan bytes, std::string_view key, const std::string &value) {
    std::string whole(bytes.begin(), bytes.end());
    std::size_t lineStart = 0;
    std::size_t valueStart = std::string::npos;
    std::size_t valueSize = 0;
    for (const KeyValueLine &line : SplitKeyValueLines(bytes)) {
        if (line.hasEquals && line.key == UpperAscii(key)) {
            valueStart = lineStart + line.key.size() + 1;
            valueSize = line.value.size();
        }
        lineStart = whole.find('\n', lineStart) + 1;
    }
    if (valueStart != std::string::npos) {
        whole.erase(valueStart, valueSize);
    } else {
        if (!whole.empty() && !whole.ends_with('\n'))
            whole += "\r\n";
        whole += std::string(key) + "=\r\n";
        valueStart = whole.size() - 2;
    }
    whole.insert(valueStart, IsUtf8BeyondAscii(whole) ? value : ProjectTextOfUtf8(value));
    return {whole.begin(), whole.end()};
}

}  // namespace vtr
