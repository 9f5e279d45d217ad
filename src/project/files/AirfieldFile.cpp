#include "AirfieldFile.h"

#include "AirfieldLists.h"
#include "Arithmetic.h"
#include "GamePosition.h"
#include "RecordFile.h"
#include "WholeFile.h"

namespace vtr {

namespace {

enum AirfieldOffset : std::size_t {
    unused0 = 0,
    indexByte = 3,
    unused4 = 4,
    models = 20,         // a word a year
    yearSlotCodes = 28,  // a word a year
    extraWord = 36,
    unused38 = 38,
    countryByte = 42,
    unused43 = 43,
    airfieldEnd = 44
};
static_assert(models + 2 * airfieldYears.size() == yearSlotCodes);
static_assert(yearSlotCodes + 2 * airfieldYears.size() == extraWord);
static_assert(airfieldEnd == airfieldRecordSize);

/// A word of the file that holds "no model" (index 0).
constexpr std::uint16_t noModel = 65535;

constexpr RecordFile<airfieldRecordSize> airfieldFile{"airfield", airfieldTotal, 8};

}  // namespace

void DecodeAirfield(std::span<const std::uint8_t, airfieldRecordSize> record, AirfieldRecord &airfield,
                    const Place &place) {
    const auto word = [&record](std::size_t field) { return TwoByteValue(record[field], record[field + 1]); };
    airfield.index_byte = record[indexByte];
    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        const std::size_t model = models + 2 * year;
        airfield.*airfieldModels[year] = ToByte(word(model), place.Plus(model));
        airfield.yearSlots[year] = YearSlotOfCode(word(yearSlotCodes + 2 * year));
    }
    // Carried through: here 255, 255 is a number like any other.
    airfield.airfield_extra_word = GetUint16(record, extraWord);
    airfield.country = record[countryByte];
}

void EncodeAirfield(const AirfieldRecord &airfield, std::span<std::uint8_t, airfieldRecordSize> record,
                    const Place &place) {
    record[indexByte] = airfield.index_byte;
    for (std::size_t year = 0; year < airfieldYears.size(); ++year) {
        const std::uint8_t model = airfield.*airfieldModels[year];
        PutUint16(record, models + 2 * year, model == 0 ? noModel : model);
        const std::size_t slot = yearSlotCodes + 2 * year;
        PutUint16(record, slot, CodeOfYearSlot(airfield.yearSlots[year], place.Plus(slot)));
    }
    PutUint16(record, extraWord, airfield.airfield_extra_word);
    record[countryByte] = airfield.country;
}

void DecodeAirfields(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                     LoadListener &listener) {
    airfieldFile.Decode(bytes, path, listener, [&](std::size_t i, const auto &record, const Place &place) {
        DecodeAirfield(record, campaign.AirfieldTable[i], place);
    });
}

void ReadAirfields(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeAirfields(ReadStartOfFile(path, airfieldFile.Size()), path, campaign, listener);
}

Bytes EncodeAirfields(const Campaign &campaign, const std::string &path) {
    return airfieldFile.Encode(path, [&](std::size_t i, auto record, const Place &place) {
        EncodeAirfield(campaign.AirfieldTable[i], record, place);
    });
}

void WriteAirfields(const std::string &path, const Campaign &campaign, const FileWrite &write) {
    if (!path.empty())
        write(path, EncodeAirfields(campaign, path));
}

}  // namespace vtr
