#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "Errors.h"
#include "TileTypes.h"

namespace vtr {
namespace {

TEST(TileTypes, ListTextIsTwoDigitsAndTheName) {
    EXPECT_EQ(TileListText(0), "00 - Field8");
    EXPECT_EQ(TileListText(9), "09 - Field4");
    EXPECT_EQ(TileListText(10), "10 - City1");
    EXPECT_EQ(TileListText(58), "58 - CostTR");
}

TEST(TileTypes, TheOrderIsTheGamesOwn) {
    std::vector<std::string> texts;
    for (int type = 0; type < tileTypeCount; ++type)
        texts.push_back(TileListText(type));
    const std::vector<std::string> expected = {
        "00 - Field8", "01 - Grass",  "02 - Water",  "03 - Coast1", "04 - Coast3", "05 - Coast2",
        "06 - Field1", "07 - Field2", "08 - Field5", "09 - Field4", "10 - City1",  "11 - City2",
        "12 - City3",  "13 - City4",  "14 - River1", "15 - River2", "16 - River9", "17 - River4",
        "18 - River5", "19 - River6", "20 - River7", "21 - River8", "22 - Mount1", "23 - Mount4",
        "24 - Mount3", "25 - Mount2", "26 - Forst4", "27 - Forst1", "28 - Forst5", "29 - Forst6",
        "30 - Forst3", "31 - Forst2", "32 - Coast4", "33 - Coast5", "34 - Road1",  "35 - Road2",
        "36 - Road6",  "37 - Road4",  "38 - Field7", "39 - Road8",  "40 - Road9",  "41 - Forst7",
        "42 - City5",  "43 - RivrND", "44 - Coast6", "45 - Road10", "46 - City9",  "47 - Field6",
        "48 - City7",  "49 - City8",  "50 - CostU1", "51 - CostU2", "52 - CostBR", "53 - RivrBR",
        "54 - RivrFK", "55 - CostRV", "56 - RivrTR", "57 - CostCT", "58 - CostTR"};
    EXPECT_EQ(texts, expected);
}

TEST(TileTypes, NoTwoTypesShareANameOrAPicture) {
    std::set<std::string> texts;
    std::set<std::string> files;
    for (int type = 0; type < tileTypeCount; ++type) {
        texts.insert(TileListText(type).substr(5));
        files.insert(TilePictureFile(type));
    }
    EXPECT_EQ(texts.size(), 59U);
    EXPECT_EQ(files.size(), 59U);
}

TEST(TileTypes, ThePictureFileIsNamedAfterTheType) {
    EXPECT_EQ(TilePictureFile(2), "BNWater.pcx");
    EXPECT_EQ(TilePictureFile(45), "BNRoad10.pcx");
    EXPECT_EQ(TilePicturePath("C:\\game\\tiles", 1), "C:\\game\\tiles\\BNGrass.pcx");
    EXPECT_EQ(TilePicturePath("/game/tiles", 1), "/game/tiles/BNGrass.pcx");
}

TEST(TileTypes, CitiesHavePicturesOfAnotherName) {
    EXPECT_EQ(TilePictureFile(10), "BNAlcty.pcx");
    EXPECT_EQ(TilePictureFile(11), "BNAlcty2.pcx");
    EXPECT_EQ(TilePictureFile(12), "BNAlcty3.pcx");
    EXPECT_EQ(TilePictureFile(42), "BNAlcty5.pcx");
    EXPECT_EQ(TilePictureFile(46), "BNAlcty9.pcx");
    EXPECT_EQ(TilePictureFile(49), "BNAlcty8.pcx");
}

TEST(TileTypes, Byte8AIsTheFirstCityTurnedSouth) {
    EXPECT_EQ(TilePictureFile(TileTypeOf(0x8A)), "BNAlcty.pcx");
    EXPECT_EQ(HalfTurnsOf(TileOrientationOf(0x8A)), -1.0);
}

TEST(TileTypes, ByteC1IsGrassTurnedWest) {
    EXPECT_EQ(TilePictureFile(TileTypeOf(0xC1)), "BNGrass.pcx");
    EXPECT_EQ(HalfTurnsOf(TileOrientationOf(0xC1)), 0.5);
}

TEST(TileTypes, TheTwoHighBitsGiveTheTurn) {
    for (int type = 0; type < 64; ++type) {
        EXPECT_EQ(HalfTurnsOf(TileOrientationOf(static_cast<std::uint8_t>(type))), 0.0);
        EXPECT_EQ(HalfTurnsOf(TileOrientationOf(static_cast<std::uint8_t>(64 + type))), -0.5);
        EXPECT_EQ(HalfTurnsOf(TileOrientationOf(static_cast<std::uint8_t>(128 + type))), -1.0);
        EXPECT_EQ(HalfTurnsOf(TileOrientationOf(static_cast<std::uint8_t>(192 + type))), 0.5);
        EXPECT_EQ(TileTypeOf(static_cast<std::uint8_t>(192 + type)), type);
    }
}

TEST(TileTypes, ATypeTheGameDoesNotKnowIsAnIndexError) {
    for (const int type : {-1, 59, 63}) {
        try {
            TileListText(type);
            FAIL() << type;
        } catch (const Error &error) {
            EXPECT_EQ(error.Kind(), ErrorKind::IndexOutOfRange);
            EXPECT_EQ(error.Found(), std::to_string(type));
        }
        EXPECT_THROW(TilePictureFile(type), Error);
    }
}

}  // namespace
}  // namespace vtr
