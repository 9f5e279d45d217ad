#include "SetProjectKey.h"

#include "KeyValueLines.h"
#include "Text.h"

namespace vtr {

Bytes WithProjectKey(ConstByteSpan bytes, std::string_view key, const std::string &value) {
    const std::string text = ProjectTextOfUtf8(value);
    std::string whole(bytes.begin(), bytes.end());
    std::size_t lineStart = 0;
    std::size_t valueStart = std::string::npos;
    std::size_t valueSize = 0;
    for (const KeyValueLine &line : SplitKeyValueLines(bytes)) {
        if (line.hasEquals && line.key == key) {
            valueStart = lineStart + line.key.size() + 1;
            valueSize = line.value.size();
        }
        lineStart = whole.find('\n', lineStart) + 1;
    }
    if (valueStart != std::string::npos) {
        whole.replace(valueStart, valueSize, text);
    } else {
        if (!whole.empty() && !whole.ends_with('\n'))
            whole += "\r\n";
        whole += std::string(key) + "=" + text + "\r\n";
    }
    return {whole.begin(), whole.end()};
}

}  // namespace vtr
