#include "AirfieldMaker.h"

#include "AirfieldLists.h"
#include "Arithmetic.h"
#include "Noise.h"

namespace vtr {

namespace {

enum class Side : std::uint8_t { Allied, German };

// Entries of the aircraft list that were flown in a year of airfieldYears.
const std::vector<int> &AircraftOf(Side side, std::size_t year) {
    static const std::array<std::vector<int>, 4> allied{
        {{9, 10}, {0, 2, 6, 7, 8, 11, 13, 15}, {1, 3, 4, 6, 7, 8, 11, 13}, {3, 5, 6, 12, 14, 15}}};
    static const std::array<std::vector<int>, 4> german{
        {{16, 19, 25, 27, 28}, {17, 20, 21, 22, 25, 26}, {17, 20, 22, 26, 28, 29}, {18, 22, 23, 24, 26}}};
    return side == Side::Allied ? allied[year] : german[year];
}

// Who holds a country's airfields in a year: the front comes from the west.
Side HolderOf(Country country, std::size_t year) {
    switch (country) {
        case Country::Britain:
            return Side::Allied;
        case Country::France:
            return year == 2 || year == 3 ? Side::Allied : Side::German;
        case Country::Belgium:
        case Country::Holland:
            return year == 0 || year == 3 ? Side::Allied : Side::German;
        case Country::Germany:
        case Country::Bohemia:
            break;
    }
    return Side::German;
}

class AirfieldMaker {
  public:
    AirfieldRecord Make(Country country, std::size_t index) {
        AirfieldRecord airfield;
        airfield.index_byte = ToByte(static_cast<int>(index));
        airfield.country = static_cast<std::uint8_t>(country);
        airfield.airfield_extra_word = static_cast<std::uint16_t>(random_.Below(2000));
        const std::array<std::uint8_t *, 4> models{&airfield.base_1940, &airfield.base_1943,
                                                   &airfield.base_1944, &airfield.base_1945};
        // Some fields are only built during the war, a few are given up again.
        const int model = random_.Between(1, 10);
        const int firstYear = random_.Below(5) - 2;
        const int lastYear = random_.Below(6) == 0 ? 2 : 3;
        for (int year = 0; year < 4; ++year) {
            const auto at = static_cast<std::size_t>(year);
            const bool inUse = year >= firstYear && year <= lastYear;
            *models[at] = inUse ? ToByte(model) : std::uint8_t{0};
            airfield.yearSlots[at] = YearSlotOfEntry(EntryFor(HolderOf(country, at), at, inUse));
        }
        return airfield;
    }

  private:
    // The aircraft take turns, so that each of them is used.
    int EntryFor(Side side, std::size_t year, bool inUse) {
        const std::vector<int> &aircraft = AircraftOf(side, year);
        if (!inUse || random_.Below(12) == 0)
            return side == Side::German ? 32 : random_.Between(30, 31);
        return aircraft[turn_++ % aircraft.size()];
    }

    Random random_{601};
    std::size_t turn_ = 0;
};

}  // namespace

void FillAirfields(const Theatre &theatre, const std::vector<std::size_t> &sites, Campaign &campaign) {
    AirfieldMaker maker;
    for (std::size_t i = 0; i < airfieldTotal; ++i)
        campaign.AirfieldTable[i] = maker.Make(theatre.airfieldSites[sites[i]].country, i);
}

}  // namespace vtr
