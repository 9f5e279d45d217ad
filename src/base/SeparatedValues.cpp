#include "SeparatedValues.h"

#include <algorithm>
#include <string_view>

namespace vtr {

namespace {

template <typename Written>
std::string Separated(const TextRows &rows, char separator, std::string_view lineEnd, Written written) {
    std::string all;
    for (const std::vector<std::string> &row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column > 0)
                all += separator;
            all += written(row[column]);
        }
        all += lineEnd;
    }
    return all;
}

std::string Quoted(const std::string &text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char character : text)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

std::string WithoutTabs(std::string text) {
    std::ranges::replace_if(
        text, [](char character) { return character == '\t' || character == '\r' || character == '\n'; },
        ' ');
    return text;
}

}  // namespace

std::string CommaSeparated(const TextRows &rows) {
    std::string all = Separated(rows, ',', "\r\n", Quoted);
    const bool isAscii =
        std::ranges::all_of(all, [](char character) { return static_cast<unsigned char>(character) < 128; });
    return isAscii ? all : "\xEF\xBB\xBF" + all;
}

std::string TabSeparated(const TextRows &rows) {
    return Separated(rows, '\t', "\n", WithoutTabs);
}

}  // namespace vtr
