#pragma once

#include <string>
#include <vector>

namespace vtr {

/// Rows of texts (UTF-8).
using TextRows = std::vector<std::vector<std::string>>;

/// The content of a file of comma-separated values as RFC 4180 describes it: lines end in CR LF, and a text
/// with a comma, a quotation mark or a line break stands in quotation marks. When a text is not plain ASCII,
/// the file begins with the mark of UTF-8, without which spreadsheets read another encoding.
std::string CommaSeparated(const TextRows &rows);
/// The rows for the clipboard: tabs between the texts, a line feed behind each row. A tab or a line break in
/// a text becomes a blank.
std::string TabSeparated(const TextRows &rows);

}  // namespace vtr
