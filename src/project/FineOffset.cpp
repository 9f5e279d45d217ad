#include "FineOffset.h"

#include <optional>
#include <utility>

#include "Arithmetic.h"

namespace vtr {

FineOffset::FineOffset(std::string text) {
    const std::optional<double> number = FindNumber(text);
    if (number && ShortestText(*number) == text)
        metres_ = *number;
    else
        text_ = std::move(text);
}

std::string FineOffset::Text() const {
    return std::isnan(metres_) ? text_ : ShortestText(metres_);
}

double FineOffset::Metres(const Place &place) const {
    return std::isnan(metres_) ? NumberOfText(text_, place) : metres_;
}

}  // namespace vtr
