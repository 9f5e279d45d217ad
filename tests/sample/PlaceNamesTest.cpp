#include <gtest/gtest.h>

#include <set>

#include "PlaceNames.h"

namespace vtr {
namespace {

TEST(PlaceNames, AreDifferentForAllPlacesOfACountry) {
    // As many as the country with this number of places needs: its cities and airfields.
    const std::vector<std::pair<Country, int>> needed{{Country::Britain, 51}, {Country::Germany, 69},
                                                      {Country::France, 48},  {Country::Belgium, 20},
                                                      {Country::Holland, 16}, {Country::Bohemia, 22}};
    std::set<std::string> names;
    std::size_t total = 0;
    for (const auto &[country, count] : needed)
        for (int i = 0; i < count; ++i, ++total)
            names.insert(PlaceName(country, i));
    EXPECT_EQ(names.size(), total);
}

}  // namespace
}  // namespace vtr
