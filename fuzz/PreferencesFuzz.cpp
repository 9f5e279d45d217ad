#include <cstdlib>

#include "Preferences.h"

// Whatever was read is written so that it reads back the same, without bad lines.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const vtr::Preferences read = vtr::DecodePreferences({data, size}).preferences;
    const vtr::PreferencesRead again = vtr::DecodePreferences(vtr::EncodePreferences(read));
    if (again.preferences != read || !again.badLines.empty())
        std::abort();
    return 0;
}
