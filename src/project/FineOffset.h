#pragma once

#include <cmath>
#include <limits>
#include <string>

#include "Errors.h"

namespace vtr {

/// What a position lies beside its map pixel, in metres (0 to 4100): a cell of decimal text. A campaign has
/// thousands of them, most of which nobody looks at, so one whose text is the shortest of a number is kept as
/// that number.
class FineOffset {
  public:
    FineOffset() = default;  ///< an empty text
    FineOffset(double metres) : metres_(metres) {}
    FineOffset(std::string text);
    FineOffset(const char *text) : FineOffset(std::string(text)) {}

    bool Empty() const { return std::isnan(metres_) && text_.empty(); }
    std::string Text() const;
    /// The number that the text reads to; throws a type-mismatch Error for a text that is no number.
    double Metres(const Place &place = {}) const;

    bool operator==(const FineOffset &other) const { return Text() == other.Text(); }

  private:
    double metres_ = std::numeric_limits<double>::quiet_NaN();  ///< NaN: text_ holds
    std::string text_;
};

}  // namespace vtr
