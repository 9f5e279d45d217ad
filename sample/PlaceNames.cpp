#include "PlaceNames.h"

#include <numeric>
#include <string_view>

namespace vtr {

namespace {

struct NameParts {
    std::vector<std::string_view> roots;
    std::vector<std::string_view> endings;
};

NameParts PartsOf(Country country) {
    switch (country) {
        case Country::Britain:
            return {{"Tarra", "Wexlin", "Hobbel", "Brindle", "Cawd", "Orrin", "Quarrel", "Selver", "Thornel",
                     "Yaxel", "Penwar"},
                    {"wick", "mere", "holm", "stead", "combe", "ness"}};
        case Country::Germany:
            return {{"Drauk", "Velms", "Ostrel", "Grimmel", "Zwarn", "Torfel", "Immels", "Ebbing", "Wolpen",
                     "Narst", "Kr\xFCgel"},
                    {"heim", "stedt", "hagen", "rode", "w\xF6rth", "m\xFChl", "feld"}};
        case Country::France:
            return {
                {"Sarvil", "Bervan", "Coriel", "Lusan", "Tremol", "Vaurel", "Pondrel", "Garsan", "Meloir"},
                {"ac", "\xE8res", "court", "euil", "igny", "emont"}};
        case Country::Belgium:
            return {{"Haskel", "Wervin", "Brosel", "Lommar", "Vremd"},
                    {"gem", "beke", "hove", "zele", "loo"}};
        case Country::Holland:
            return {{"Zwendel", "Harkel", "Oudrin", "Wiekel", "Borrem"},
                    {"dam", "recht", "oord", "zand", "veen"}};
        case Country::Bohemia:
            break;
    }
    return {{"Drozmi", "Kravel", "Lostu", "Trusla", "Vrbel", "Zelmi"},
            {"nice", "kov", "\x9Atejn", "vany", "ves"}};
}

}  // namespace

std::string PlaceName(Country country, int index) {
    const NameParts parts = PartsOf(country);
    const auto at = static_cast<std::size_t>(index);
    const std::size_t roots = parts.roots.size();
    // Stepping through both lists at once meets every pair only when their lengths share no factor. One more
    // step after each common round makes it work for all lengths.
    const std::size_t ending = at + at / std::lcm(roots, parts.endings.size());
    return std::string(parts.roots[at % roots]) + std::string(parts.endings[ending % parts.endings.size()]);
}

}  // namespace vtr
