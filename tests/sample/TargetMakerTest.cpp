#include <algorithm>
#include <map>
#include <set>

#include "GridData.h"
#include "ReorderTargets.h"
#include "SharedSample.h"
#include "TargetMaker.h"

namespace vtr {
namespace {

constexpr int firstCoastType = 3;  // Coast1; the others stand in the game's own order

bool IsCoastType(int type) {
    constexpr std::array types{firstCoastType, 4, 5, 32, 33, 44, 50, 51, 52, 55, 57, 58};
    return std::ranges::find(types, type) != types.end();
}

TEST(TargetMaker, PutsEveryTargetOnLandAndNoTwoOnTheSameTile) {
    std::set<std::pair<int, int>> places;
    for (const TargetRecord &target : Sample().TargetTable) {
        EXPECT_TRUE(IsLandTile(target.x, target.y)) << target.name;
        EXPECT_TRUE(places.emplace(target.x, target.y).second) << target.name;
    }
}

TEST(TargetMaker, PutsPortsAtTheShore) {
    int ports = 0;
    for (const TargetRecord &target : Sample().TargetTable)
        if (target.name.ends_with(" Port")) {
            ++ports;
            bool shore = IsCoastType(TileTypeAt(target.x, target.y));
            for (int y = target.y - 1; y <= target.y + 1; ++y)
                for (int x = target.x - 1; x <= target.x + 1; ++x)
                    shore |= TileTypeAt(x, y) == waterType;
            EXPECT_TRUE(shore) << target.name;
        }
    EXPECT_GT(ports, 10);
}

TEST(TargetMaker, GivesEveryTargetANameOfItsOwnByItsCode) {
    std::set<std::uint16_t> codes;
    std::set<std::string> names;
    for (const TargetRecord &target : Sample().TargetTable) {
        EXPECT_EQ(target.name, Sample().TargetNameTable.at(target.code));
        EXPECT_FALSE(target.name.empty());
        codes.insert(target.code);
        names.insert(target.name);
    }
    EXPECT_EQ(codes.size(), 302U);
    EXPECT_EQ(names.size(), 302U);
}

TEST(TargetMaker, GivesLargeCitiesSeveralTargets) {
    std::map<std::string, int> targetsOfCity;
    for (const TargetRecord &target : Sample().TargetTable)
        if (target.airfield_mark == 0)
            ++targetsOfCity[target.name.substr(0, target.name.find(' '))];
    EXPECT_EQ(targetsOfCity.size(), 64U);
    EXPECT_GE(std::ranges::count_if(targetsOfCity, [](const auto &city) { return city.second >= 3; }), 15);
}

TEST(TargetMaker, LeavesTheTargetsInAnOrderForWhichTheGridBuilds) {
    const GridResult result = BuildGrid(Sample().TargetTable);
    EXPECT_FALSE(result.misfit.has_value());
    int filed = 0;
    for (const GridCell &cell : result.grid)
        filed += cell.count;
    EXPECT_EQ(filed, 302);
}

TEST(TargetMaker, LeavesTheTargetsInTheOrderOfTheReorderButton) {
    const auto campaign = std::make_unique<Campaign>(Sample());
    const auto indices = ReorderTargets(*campaign, [](double) {});
    ASSERT_TRUE(indices.has_value());
    for (std::size_t i = 0; i < indices->size(); ++i)
        EXPECT_EQ((*indices)[i], i);
}

TEST(TargetMaker, RefersToEveryAirfieldOnceAndToAirfieldZeroByTheTargetThatIsAlwaysOne) {
    std::multiset<int> airfields;
    for (std::size_t i = 0; i < targetTotal; ++i) {
        const TargetRecord &target = Sample().TargetTable[i];
        EXPECT_EQ(target.airfield_mark, target.airfield_ref != 0 || i == 81 ? 65535 : 0) << i;
        EXPECT_EQ(target.airfield_mark != 0, target.name.ends_with(" Airfield")) << target.name;
        if (target.airfield_mark != 0)
            airfields.insert(target.airfield_ref);
    }
    EXPECT_EQ(airfields.size(), 162U);
    for (int airfield = 0; airfield < 162; ++airfield)
        EXPECT_EQ(airfields.count(airfield), 1U) << airfield;
    EXPECT_EQ(Sample().TargetTable[81].airfield_ref, 0);
}

TEST(TargetMaker, UsesTheWholeRangeOfFineOffsets) {
    std::set<double> all;
    double least = 4100;
    double most = 0;
    for (const TargetRecord &target : Sample().TargetTable)
        for (const double metres : target.fineOffsets) {
            least = std::min(least, metres);
            most = std::max(most, metres);
            all.insert(metres);
        }
    EXPECT_GE(least, 0);
    EXPECT_LT(least, 100);
    EXPECT_GT(most, 4000);
    EXPECT_LT(most, 4100);
    EXPECT_GT(all.size(), 590U);
}

}  // namespace
}  // namespace vtr
