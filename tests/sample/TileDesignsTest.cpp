#include <gtest/gtest.h>

#include "TileDesigns.h"

namespace vtr {
namespace {

TEST(TileDesigns, NamePictureFilesAsTheGameLooksForThem) {
    EXPECT_EQ(TileFileName("Water"), "BNWater.pcx");
    EXPECT_EQ(TileFileName("City1"), "BNAlcty.pcx");
    EXPECT_EQ(TileFileName("City2"), "BNAlcty2.pcx");
    EXPECT_EQ(TileFileName("City9"), "BNAlcty9.pcx");
    EXPECT_EQ(TileFileName("Road10"), "BNRoad10.pcx");
}

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
