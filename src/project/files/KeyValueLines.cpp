#include "KeyValueLines.h"

#include <algorithm>
#include <utility>

#include "Text.h"

namespace vtr {

std::vector<KeyValueLine> SplitKeyValueLines(ConstByteSpan bytes) {
    std::vector<KeyValueLine> lines;
    auto rest = bytes.begin();
    while (rest != bytes.end()) {
        const auto end = std::find(rest, bytes.end(), std::uint8_t{'\n'});
        std::string text(rest, end);
        if (text.ends_with('\r'))
            text.pop_back();
        rest = end == bytes.end() ? end : end + 1;

        KeyValueLine line;
        line.number = static_cast<int>(lines.size()) + 1;
        const std::size_t equals = text.find('=');
        line.hasEquals = equals != std::string::npos;
        if (line.hasEquals) {
            line.key = UpperAscii(std::string_view(text).substr(0, equals));
            line.value = text.substr(equals + 1);
        }
        line.text = std::move(text);
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace vtr
