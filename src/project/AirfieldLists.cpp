#include "AirfieldLists.h"

#include <algorithm>

#include "Arithmetic.h"

namespace vtr {

namespace {

constexpr int firstGermanEntry = 16;
constexpr int alliedNoPlaneEntryA = 30;
constexpr int alliedNoPlaneEntryB = 31;
constexpr int germanNoPlaneEntry = 32;

constexpr std::uint16_t alliedNoPlaneCodeA = 512;
constexpr std::uint16_t alliedNoPlaneCodeB = 256;
constexpr std::uint16_t germanNoPlaneCode = 128;

AirfieldYearSlot AircraftSlot(int entry) {
    AirfieldYearSlot slot;
    const bool german = entry >= firstGermanEntry;
    slot.german = german ? flagSet : std::uint16_t{0};
    slot.aircraft = ToByte(german ? entry - firstGermanEntry : entry);
    return slot;
}

}  // namespace

const std::array<std::string_view, 33> aircraftCaptions{"P-38H",
                                                        "P-38J",
                                                        "P-47C",
                                                        "P-47D",
                                                        "P-51B",
                                                        "P-51D",
                                                        "B-17F",
                                                        "B-24D",
                                                        "B-26B",
                                                        "Hurricane",
                                                        "Spitfire Mk I",
                                                        "Spitfire Mk IX",
                                                        "Spitfire MK XIVe",
                                                        "Typhoon",
                                                        "Tempest",
                                                        "Mosquito",
                                                        "Me-109E",
                                                        "Me-109G",
                                                        "Me-109K",
                                                        "Me-110C",
                                                        "Me-110G",
                                                        "Me-410",
                                                        "Fw-190A",
                                                        "Fw-190D",
                                                        "Me-262A",
                                                        "Ju-88A",
                                                        "Ju-88C",
                                                        "Ju-87B",
                                                        "He-111",
                                                        "V-1",
                                                        "Allied (No Plane)",
                                                        "Allied (No Plane)",
                                                        "German (No Plane)"};

const std::array<std::string_view, 11> airfieldModelCaptions{
    "NONE",         "airfld10.3dz", "airfld09.3dz", "airfld06.3dz", "airfld02.3dz", "airfld11.3dz",
    "airfld01.3dz", "airfld03.3dz", "airfld04.3dz", "airfld05.3dz", "airfld07.3dz"};

// The game has no country 5.
const std::array<CountryEntry, 6> countryEntries{{{"Great Britain", 0},
                                                  {"Germany", 1},
                                                  {"France", 2},
                                                  {"Belgium", 3},
                                                  {"Holland", 4},
                                                  {"(Czech. Rep.)", 6}}};

AirfieldYearSlot YearSlotOfEntry(int entry) {
    CheckIndex(entry, aircraftCaptions.size(), {.item = "aircraft list entry"});
    AirfieldYearSlot slot;
    switch (entry) {
        case alliedNoPlaneEntryA:
            slot.allied_no_plane_a = flagSet;
            return slot;
        case alliedNoPlaneEntryB:
            slot.allied_no_plane_b = flagSet;
            return slot;
        case germanNoPlaneEntry:
            slot.german_no_plane = flagSet;
            return slot;
        default:
            return AircraftSlot(entry);
    }
}

std::optional<int> EntryOfYearSlot(const AirfieldYearSlot &slot) {
    if (slot.allied_no_plane_a != 0)
        return alliedNoPlaneEntryA;
    if (slot.allied_no_plane_b != 0)
        return alliedNoPlaneEntryB;
    if (slot.german_no_plane != 0)
        return germanNoPlaneEntry;
    const int entry = slot.aircraft + (slot.german != 0 ? firstGermanEntry : 0);
    const int end = slot.german != 0 ? alliedNoPlaneEntryA : firstGermanEntry;
    return entry < end ? std::optional(entry) : std::nullopt;
}

AirfieldYearSlot YearSlotOfCode(std::uint16_t code) {
    if (code < alliedNoPlaneEntryA)
        return AircraftSlot(code);
    switch (code) {
        case alliedNoPlaneCodeA:
            return YearSlotOfEntry(alliedNoPlaneEntryA);
        case alliedNoPlaneCodeB:
            return YearSlotOfEntry(alliedNoPlaneEntryB);
        case germanNoPlaneCode:
            return YearSlotOfEntry(germanNoPlaneEntry);
        default:
            return {};
    }
}

std::uint16_t CodeOfYearSlot(const AirfieldYearSlot &slot, const Place &place) {
    if (slot.allied_no_plane_a != 0)
        return alliedNoPlaneCodeA;
    if (slot.allied_no_plane_b != 0)
        return alliedNoPlaneCodeB;
    if (slot.german_no_plane != 0)
        return germanNoPlaneCode;
    return ToByte(slot.aircraft + (slot.german != 0 ? firstGermanEntry : 0), place);
}

std::string AircraftText(const AirfieldYearSlot &slot) {
    const std::optional<int> entry = EntryOfYearSlot(slot);
    return entry ? std::string(aircraftCaptions[static_cast<std::size_t>(*entry)]) : "unknown";
}

std::string ModelText(std::uint8_t model) {
    return model < airfieldModelCaptions.size() ? std::string(airfieldModelCaptions[model])
                                                : std::to_string(model);
}

std::string CountryText(std::uint8_t code) {
    const auto *entry = std::ranges::find(countryEntries, code, &CountryEntry::code);
    return entry == countryEntries.end() ? std::to_string(code) : std::string(entry->caption);
}

}  // namespace vtr
