#pragma once

#include <string>
#include <string_view>

#include "Differences.h"

namespace vtr {

/// The usual name of the file that stores the difference ("TARGET.DAT"); empty when no file does.
std::string_view FileWith(const Difference &difference);
/// The difference in one sentence for the user (UTF-8), without its full stop:
/// "Target 12 'Wexlinmere Bridge': column 110 to 111".
std::string SentenceOf(const Difference &difference);
/// The number of differences and their files: "12 differences in TARGET.DAT and VTR_RRD.DAT". Empty when no
/// file stores any.
std::string SummaryOf(const Differences &differences);

}  // namespace vtr
