#include "GameText.h"

#include <unordered_map>

#include "Text.h"

namespace vtr {

namespace {

/// The byte of every character that has one.
const std::unordered_map<char16_t, char> &BytesByCharacter() {
    static const auto table = [] {
        std::unordered_map<char16_t, char> map;
        for (int value = 0; value < 256; ++value) {
            const char byte = static_cast<char>(value);
            map.emplace(ShownText({&byte, 1}).front().unicode(), byte);
        }
        return map;
    }();
    return table;
}

}  // namespace

QString ShownText(std::string_view bytes) {
    return QString::fromStdString(Utf8OfWindows1252(bytes));
}

std::optional<std::string> GameTextOf(const QString &text) {
    std::string bytes;
    for (const QChar character : text) {
        const auto found = BytesByCharacter().find(character.unicode());
        if (found == BytesByCharacter().end())
            return std::nullopt;
        bytes.push_back(found->second);
    }
    return bytes;
}

QString ShownProjectName(std::string_view name) {
    return QString::fromStdString(Utf8OfProjectText(Shortened(name)));
}

QString ProjectCaption(std::string_view name) {
    // A single "&" would mark the letter behind it as the shortcut.
    return ShownProjectName(name).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace vtr
