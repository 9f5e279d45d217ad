#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "Campaign.h"

namespace vtr {

struct CountryEntry {
    std::string_view caption;
    std::uint8_t code;
};

extern const std::array<std::string_view, 33> aircraftCaptions;
extern const std::array<std::string_view, 11> airfieldModelCaptions;
extern const std::array<CountryEntry, 6> countryEntries;

/// The slot that choosing entry 0 to 32 of the aircraft list stores. Throws an index Error for other entries.
AirfieldYearSlot YearSlotOfEntry(int entry);
/// The entry of the aircraft list that shows slot, if any. Checks the flags in CodeOfYearSlot's order.
std::optional<int> EntryOfYearSlot(const AirfieldYearSlot &slot);
/// The slot that the file's two-byte code stands for; an unknown code gives an all-zero slot.
AirfieldYearSlot YearSlotOfCode(std::uint16_t code);
/// The file's code for slot. The first set flag decides, in the order allied_no_plane_a, allied_no_plane_b,
/// german_no_plane, german. Throws an overflow Error for an aircraft that does not fit the code's low byte.
std::uint16_t CodeOfYearSlot(const AirfieldYearSlot &slot, const Place &place = {});

/// The captions of what an airfield record holds; "unknown" or the number when the lists have none for it.
std::string AircraftText(const AirfieldYearSlot &slot);
std::string ModelText(std::uint8_t model);
std::string CountryText(std::uint8_t code);

}  // namespace vtr
