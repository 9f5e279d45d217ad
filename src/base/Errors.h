#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vtr {

enum class ErrorKind {
    FileMissing,
    FileAccess,
    FileTooShort,
    FileTooLarge,
    Overflow,
    IndexOutOfRange,
    TypeMismatch
};

/// Where in the data something is being read, computed or written. It does not own its texts: the caller
/// keeps them alive. Negative numbers and empty texts mean "not known" or "does not apply".
struct Place {
    std::string_view file{};
    std::int64_t offset = -1;  ///< in bytes from the start of the file
    int line = -1;             ///< counted from 1
    std::string_view item{};   ///< "target", "railway line", ...
    int index = -1;            ///< of the item, counted from 0

    /// The place that many bytes further on in the same item.
    Place Plus(std::size_t bytes) const {
        Place further = *this;
        further.offset += offset < 0 ? 0 : static_cast<std::int64_t>(bytes);
        return further;
    }
};

/// The state of the file that a failed write should have replaced.
enum class FileAfterwards { AsBefore, Replaced, MayBeDamaged };

/// What the program was doing to a file, "flushing the temporary file to disk", and the system's words for
/// why it failed.
struct FailedStep {
    std::string step;
    std::string reason;
    FileAfterwards file = FileAfterwards::AsBefore;
};

/// The one error type of the program. Either something was found that was not expected, or a step failed. The
/// parts of the other case are empty. what() is a full sentence.
class Error : public std::runtime_error {
  public:
    Error(ErrorKind kind, const Place &place, std::string expected, std::string found);
    Error(ErrorKind kind, const Place &place, FailedStep failed);

    ErrorKind Kind() const { return kind_; }
    const std::string &File() const { return file_; }
    std::int64_t Offset() const { return offset_; }
    int Line() const { return line_; }
    /// "target 5", "target" or empty.
    const std::string &Item() const { return item_; }
    const std::string &Expected() const { return expected_; }
    const std::string &Found() const { return found_; }
    const std::string &Step() const { return failed_.step; }
    const std::string &Reason() const { return failed_.reason; }
    FileAfterwards AfterTheFailure() const { return failed_.file; }
    /// True when the file holds the new content, although a later step failed.
    bool FileReplaced() const { return failed_.file == FileAfterwards::Replaced; }
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
    FailedStep failed_;
};

/// The kind in words, for the user: "file not found", "overflow", ...
std::string_view ErrorKindText(ErrorKind kind);

}  // namespace vtr
