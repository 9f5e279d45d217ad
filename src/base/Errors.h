#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vtr {

enum class ErrorKind { FileMissing, FileAccess, FileTooShort, Overflow, IndexOutOfRange, TypeMismatch };

/// Where in the data something is being read, computed or written. Cheap to make and to pass: it only looks
/// at text that its maker keeps alive. Negative numbers and empty texts mean "not known" or "does not apply".
struct Place {
    std::string_view file{};
    std::int64_t offset = -1;  ///< in bytes from the start of the file
    int line = -1;             ///< counted from 1
    std::string_view item{};   ///< "target", "railway line", ...
    int index = -1;            ///< the item's, counted from 0

    /// The place that lies that many bytes further in the same item.
    Place Plus(std::size_t bytes) const {
        Place further = *this;
        further.offset += offset < 0 ? 0 : static_cast<std::int64_t>(bytes);
        return further;
    }
};

/// The one error type of the program. what() is a full sentence; the parts are kept for whoever shows it.
class Error : public std::runtime_error {
  public:
    Error(ErrorKind kind, const Place &place, std::string expected, std::string found);

    ErrorKind Kind() const { return kind_; }
    const std::string &File() const { return file_; }
    std::int64_t Offset() const { return offset_; }
    int Line() const { return line_; }
    /// "target 5", "target" or empty.
    const std::string &Item() const { return item_; }
    const std::string &Expected() const { return expected_; }
    const std::string &Found() const { return found_; }
    /// "offset 12, target 5", "line 3" or empty: the place within the file.
    std::string PlaceText() const;

  private:
    ErrorKind kind_;
    std::string file_;
    std::int64_t offset_;
    int line_;
    std::string item_;
    std::string expected_;
    std::string found_;
};

/// The kind in words, for the user: "file not found", "overflow", ...
std::string_view ErrorKindText(ErrorKind kind);

}  // namespace vtr
