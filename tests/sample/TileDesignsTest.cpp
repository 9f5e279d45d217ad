#include <gtest/gtest.h>

#include "TileDesigns.h"

namespace vtr {
namespace {

TEST(TileDesigns, StandInTheGamesNumbering) {
    EXPECT_EQ(tileDesigns[0].name, "Field8");
    EXPECT_EQ(tileDesigns[2].name, "Water");
    EXPECT_EQ(tileDesigns[10].name, "City1");
    EXPECT_EQ(tileDesigns[16].name, "River9");
    EXPECT_EQ(tileDesigns[44].name, "Coast6");
    EXPECT_EQ(tileDesigns[46].name, "City9");
    EXPECT_EQ(tileDesigns[58].name, "CostTR");
    EXPECT_EQ(static_cast<int>(Tile::Coast6), 44);
    EXPECT_EQ(static_cast<int>(Tile::CostTR), 58);
}

}  // namespace
}  // namespace vtr
