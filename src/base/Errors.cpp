#include "Errors.h"

#include <utility>

namespace vtr {

namespace {

std::string ItemText(const Place &place) {
    std::string text(place.item);
    if (!text.empty() && place.index >= 0)
        text += " " + std::to_string(place.index);
    return text;
}

std::string PlaceInFile(std::int64_t offset, int line, const std::string &item) {
    std::string text;
    const auto add = [&text](const std::string &part) {
        if (!text.empty())
            text += ", ";
        text += part;
    };
    if (line >= 0)
        add("line " + std::to_string(line));
    if (offset >= 0)
        add("offset " + std::to_string(offset));
    if (!item.empty())
        add(item);
    return text;
}

std::string Sentence(ErrorKind kind, const Place &place, const std::string &what) {
    std::string text(ErrorKindText(kind));
    if (!place.file.empty())
        text += " in \"" + std::string(place.file) + "\"";
    const std::string where = PlaceInFile(place.offset, place.line, ItemText(place));
    if (!where.empty())
        text += " (" + where + ")";
    return text + ": " + what;
}

}  // namespace

Error::Error(ErrorKind kind, const Place &place, std::string expected, std::string found)
    : std::runtime_error(Sentence(kind, place, "expected " + expected + ", found " + found)),
      kind_(kind),
      file_(place.file),
      offset_(place.offset),
      line_(place.line),
      item_(ItemText(place)),
      expected_(std::move(expected)),
      found_(std::move(found)) {}

Error::Error(ErrorKind kind, const Place &place, FailedStep failed)
    : std::runtime_error(Sentence(kind, place, failed.step + " failed: " + failed.reason)),
      kind_(kind),
      file_(place.file),
      offset_(place.offset),
      line_(place.line),
      item_(ItemText(place)),
      failed_(std::move(failed)) {}

std::string Error::PlaceText() const {
    return PlaceInFile(offset_, line_, item_);
}

std::string_view ErrorKindText(ErrorKind kind) {
    switch (kind) {
        case ErrorKind::FileMissing:
            return "file not found";
        case ErrorKind::FileAccess:
            return "file access failed";
        case ErrorKind::FileTooShort:
            return "file too short";
        case ErrorKind::FileTooLarge:
            return "file too large";
        case ErrorKind::Overflow:
            return "overflow";
        case ErrorKind::IndexOutOfRange:
            return "index out of range";
        case ErrorKind::TypeMismatch:
            return "type mismatch";
    }
    return "error";
}

}  // namespace vtr
