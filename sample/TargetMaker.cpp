#include "TargetMaker.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "AirfieldMaker.h"
#include "Arithmetic.h"
#include "FineOffsetMaker.h"
#include "Noise.h"
#include "TerrainPainter.h"

namespace vtr {

namespace {

struct Draft {
    Point place;
    std::string name;
    int count = 1;
    std::optional<std::size_t> airfieldSite;
    int code = 0;
};

constexpr std::array<std::string_view, 8> commonKinds{"Rail Yard",   "Factory",  "Depot",    "Power Station",
                                                      "Steel Works", "Refinery", "Barracks", "Gas Works"};

// What stands in a city, the most important first.
std::vector<std::string_view> KindsIn(const City &city, std::size_t cityNumber) {
    std::vector<std::string_view> kinds;
    if (city.atSea)
        kinds.emplace_back("Port");
    if (city.onRiver)
        kinds.emplace_back("Bridge");
    for (std::size_t i = 0; i < commonKinds.size(); ++i)
        kinds.push_back(commonKinds[(cityNumber + i) % commonKinds.size()]);
    return kinds;
}

class Drafter {
  public:
    explicit Drafter(const Theatre &theatre) : theatre_(theatre) {}

    // Makes one target in every city, then a second one in each larger city, and so on. Then the airfields.
    std::vector<Draft> Make() {
        for (int round = 0; round < 4; ++round)
            for (std::size_t number = 0; number < theatre_.cities.size(); ++number)
                if (const City &city = theatre_.cities[number];
                    city.size > round && drafts_.size() < targetTotal - theatre_.airfieldSites.size())
                    Add(city, KindsIn(city, number)[static_cast<std::size_t>(round)]);
        for (std::size_t site = 0; site < theatre_.airfieldSites.size(); ++site) {
            const AirfieldSite &airfield = theatre_.airfieldSites[site];
            drafts_.push_back({airfield.place, airfield.name + " Airfield", random_.Between(1, 4), site, 0});
        }
        return std::move(drafts_);
    }

  private:
    void Add(const City &city, std::string_view kind) {
        drafts_.push_back(
            {PlaceFor(city, kind), city.name + " " + std::string(kind), random_.Between(1, 12), {}, 0});
    }

    Point PlaceFor(const City &city, std::string_view kind) {
        if (kind == "Port")
            return Nearest(city, [&](Point place) { return theatre_.IsCoast(place); });
        if (kind == "Bridge")
            return Nearest(city, [&](Point place) { return theatre_.IsRiver(place); });
        const std::vector<Point> places = BuiltUpPlaces(theatre_, city);
        const Point place = places[static_cast<std::size_t>(random_.Below(static_cast<int>(places.size())))];
        return Nearest(place, [](Point) { return true; });
    }

    template <typename Test>
    Point Nearest(const City &city, const Test &test) {
        return Nearest(city.place, test);
    }

    // The nearest free place on land around centre that passes test. There is one within a few tiles.
    template <typename Test>
    Point Nearest(Point centre, const Test &test) {
        constexpr int reach = 6;
        Point best = centre;
        int bestDistance = 2 * reach * reach + 1;
        for (int y = centre.y - reach; y <= centre.y + reach; ++y)
            for (int x = centre.x - reach; x <= centre.x + reach; ++x) {
                const Point place{x, y};
                if (theatre_.IsLand(place) && taken_[place] == 0 && test(place) &&
                    SquaredDistance(place, centre) < bestDistance) {
                    best = place;
                    bestDistance = SquaredDistance(place, centre);
                }
            }
        taken_[best] = 1;
        return best;
    }

    const Theatre &theatre_;
    MapGrid<std::uint8_t> taken_;
    std::vector<Draft> drafts_;
    Random random_{501};
};

// The number of each airfield site: the order of the sites, but the chosen one first.
std::vector<std::size_t> SitesWithFirst(std::size_t first, std::size_t total) {
    std::vector<std::size_t> sites{first};
    for (std::size_t site = 0; site < total; ++site)
        if (site != first)
            sites.push_back(site);
    return sites;
}

}  // namespace

void FillTargets(const Theatre &theatre, Campaign &campaign) {
    std::vector<Draft> drafts = Drafter(theatre).Make();
    for (std::size_t i = 0; i < drafts.size(); ++i) {
        drafts[i].code = static_cast<int>(i);
        campaign.TargetNameTable[i] = drafts[i].name;
    }
    campaign.TargetNameTable[targetTotal] = "Unused Target";
    std::ranges::stable_sort(
        drafts, {}, [](const Draft &draft) { return std::pair(std::max(draft.place.x, 3), draft.place.y); });
    // Airfield 0 comes to the one target that is an airfield although its reference is 0.
    const std::vector<std::size_t> sites = SitesWithFirst(
        drafts[targetThatIsAlwaysAnAirfield].airfieldSite.value_or(0), theatre.airfieldSites.size());
    for (std::size_t i = 0; i < drafts.size(); ++i) {
        const Draft &draft = drafts[i];
        TargetRecord &target = campaign.TargetTable[i];
        target.x = ToInt16(draft.place.x);
        target.y = ToInt16(draft.place.y);
        target.code = static_cast<std::uint16_t>(draft.code);
        target.name = draft.name;
        target.count = ToByte(draft.count);
        target.extra_word = static_cast<std::uint16_t>(Hash(draft.code, 1, 511) % 600);
        if (draft.airfieldSite) {
            target.airfield_mark = flagSet;
            target.airfield_ref =
                static_cast<std::uint16_t>(std::ranges::find(sites, *draft.airfieldSite) - sites.begin());
        }
        target.fineOffsets = {FineOffsetAt(draft.place, 521), FineOffsetAt(draft.place, 523)};
    }
    FillAirfields(theatre, sites, campaign);
}

}  // namespace vtr
