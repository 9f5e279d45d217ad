#include <gmock/gmock.h>

#include "ErrorThrownBy.h"
#include "Hash.h"
#include "RandomCampaign.h"
#include "UnsavedWork.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const UnsavedWork someWork{"/campaigns/north.prj",
                           1795271000,
                           {{"TARGET.DAT", {9668, 1795270000123456789, 9668, 0xfedcba9876543210}},
                            {"GRIDDATA.DAT", {70, -1, 0, 0}}}};

std::unique_ptr<Campaign> RandomTables(unsigned seed) {
    auto campaign = std::make_unique<Campaign>();
    std::mt19937 random(seed);
    FillWithRandomTables(*campaign, random);
    FillWithRandomLines(*campaign, random);
    campaign->RailwayLineCount = static_cast<std::int16_t>(random() % 894);
    campaign->firstDisabledRailwayLine = static_cast<std::int16_t>(random() % 894);
    return campaign;
}

/// Puts the right checksum behind what was changed.
void Seal(Bytes &file) {
    const std::uint64_t hash = HashOf(ConstByteSpan(file).first(file.size() - 8));
    for (std::size_t i = 0; i < 8; ++i)
        file[file.size() - 8 + i] = static_cast<std::uint8_t>(hash >> (8 * i));
}

/// The Error of reading file, which must leave the tables alone.
Error ErrorOf(const Bytes &file) {
    const auto campaign = RandomTables(7);
    const Error error = ErrorThrownBy([&] { DecodeUnsavedWork(file, "/data/a.unsaved", *campaign); });
    EXPECT_TRUE(*campaign == *RandomTables(7));
    EXPECT_EQ(error.File(), "/data/a.unsaved");
    EXPECT_FALSE(error.PlaceText().empty());
    return error;
}

TEST(UnsavedWork, RandomCampaignsReadBackAsTheyWere) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        const auto campaign = RandomTables(seed);
        const auto read = std::make_unique<Campaign>();
        EXPECT_EQ(DecodeUnsavedWork(EncodeUnsavedWork(someWork, *campaign), "", *read), someWork);
        ASSERT_TRUE(*read == *campaign) << seed;
    }
}

TEST(UnsavedWork, WhatNoFileOfTheGameHoldsReadsBackToo) {
    const auto campaign = RandomTables(1);
    TargetRecord &target = campaign->TargetTable[301];
    target.fineOffsets = {4100, 0.1};
    target.airfield_ref = 0;
    target.airfield_mark = flagSet;
    target.name = "not the name of its code";
    target.spare = 7;
    campaign->TargetTable[0].x = 32767;
    campaign->TargetTable[0].y = -32768;
    campaign->AirfieldTable[161].spare = 9;
    campaign->RailwayTable[893].fineOffsets[3] = 4100;
    campaign->TargetNameTable[0] = std::string(40000, 'x');
    campaign->TargetNameTable[1] = std::string("a\0b", 3);
    const auto read = std::make_unique<Campaign>();
    DecodeUnsavedWork(EncodeUnsavedWork(someWork, *campaign), "", *read);
    EXPECT_TRUE(*read == *campaign);
}

TEST(UnsavedWork, TerrainPathsAndNamesOfTheProjectStayThoseOfTheOpenCampaign) {
    const auto open = std::make_unique<Campaign>();
    open->paths.Name = "North";
    open->ProjectLoaded = true;
    open->terrain[5] = 3;
    open->RoadWaypointTable[2].waypoints[1].x = 4;
    const auto expected = RandomTables(2);
    expected->paths = open->paths;
    expected->ProjectLoaded = true;
    expected->terrain = open->terrain;
    expected->RoadWaypointTable = open->RoadWaypointTable;
    DecodeUnsavedWork(EncodeUnsavedWork(someWork, *RandomTables(2)), "", *open);
    EXPECT_TRUE(*open == *expected);
}

// Of an empty campaign every field but the named ones is zero.
TEST(UnsavedWork, TheBytesStandInTheirPlaces) {
    const auto campaign = std::make_unique<Campaign>();
    campaign->TargetNameTable[307] = "Yew";
    campaign->TargetTable[0].x = -2;
    campaign->TargetTable[0].fineOffsets[0] = 1.5;  // 0x3FF8000000000000
    campaign->FrontlineTable[19].points[29].on_map = flagSet;
    const Bytes file = EncodeUnsavedWork({"/a.prj", 0x01020304, {}}, *campaign);
    const auto at = [&file](std::size_t offset, std::size_t count) {
        return std::vector<int>(file.begin() + static_cast<std::ptrdiff_t>(offset),
                                file.begin() + static_cast<std::ptrdiff_t>(offset + count));
    };
    // Head 20; project 4 + 6, time 8, count of files 4; 308 names of 4 and the 3 letters; 302 targets of 50;
    // 162 airfields of 49; 4; 894 lines of 40; 600 points of 6; checksum 8.
    constexpr std::size_t names = 20 + 10 + 8 + 4;
    constexpr std::size_t targets = names + 308 * 4 + 3;
    constexpr std::size_t size = targets + 302 * 50 + 162 * 49 + 4 + 894 * 40 + 600 * 6 + 8;
    ASSERT_EQ(file.size(), size);
    EXPECT_THAT(at(0, 12), ElementsAre('V', 'T', 'R', '-', 'W', 'O', 'R', 'K', 1, 0, 0, 0));
    EXPECT_THAT(at(12, 8), ElementsAre(size & 255, size >> 8, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(at(20, 10), ElementsAre(6, 0, 0, 0, '/', 'a', '.', 'p', 'r', 'j'));
    EXPECT_THAT(at(30, 12), ElementsAre(4, 3, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(at(targets - 7, 7), ElementsAre(3, 0, 0, 0, 'Y', 'e', 'w'));
    // Eight words, the mark of a copied name, two doubles.
    EXPECT_THAT(at(targets, 2), ElementsAre(254, 255));
    EXPECT_THAT(at(targets + 16, 9), ElementsAre(1, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F));
    EXPECT_THAT(at(size - 10, 2), ElementsAre(255, 255));
    Bytes sealed = file;
    Seal(sealed);
    EXPECT_EQ(sealed, file);
}

TEST(UnsavedWork, EveryTruncatedFileIsRefused) {
    const Bytes file = EncodeUnsavedWork(someWork, *RandomTables(3));
    const auto campaign = std::make_unique<Campaign>();
    for (std::size_t length = 0; length < file.size(); ++length) {
        const ConstByteSpan cut = ConstByteSpan(file).first(length);
        ASSERT_EQ(KindThrownBy([&] { DecodeUnsavedWork(cut, "", *campaign); }), ErrorKind::FileTooShort)
            << length;
    }
    EXPECT_TRUE(*campaign == *std::make_unique<Campaign>());
    Bytes longer = file;
    longer.push_back(0);
    EXPECT_EQ(ErrorOf(longer).Kind(), ErrorKind::FileTooLarge);
}

TEST(UnsavedWork, EverySingleDamagedByteIsSeen) {
    const Bytes file = EncodeUnsavedWork(someWork, *RandomTables(4));
    const auto campaign = std::make_unique<Campaign>();
    std::mt19937 random(5);
    // All of the beginning and the end, and some of the fields between.
    for (std::size_t i = 0; i < file.size(); i += i < 200 || i + 200 > file.size() ? 1U : 97U) {
        Bytes damaged = file;
        damaged[i] = static_cast<std::uint8_t>(damaged[i] ^ (1U << random() % 8));
        ASSERT_ANY_THROW(DecodeUnsavedWork(damaged, "", *campaign)) << i;
    }
    EXPECT_TRUE(*campaign == *std::make_unique<Campaign>());
    Bytes other = file;
    other[0] = 'X';
    EXPECT_EQ(ErrorOf(other).Expected(), "a file of unsaved work");
    other = file;
    ++other[500];
    EXPECT_EQ(ErrorOf(other).Found(), "another: it is damaged");
}

TEST(UnsavedWork, AnotherVersionsFileIsRefusedByItsNumber) {
    Bytes file = EncodeUnsavedWork(someWork, *RandomTables(6));
    EXPECT_FALSE(IsOfAnotherVersion(file));
    EXPECT_FALSE(IsOfAnotherVersion({}));
    for (const unsigned version : {0U, 2U}) {
        file[8] = static_cast<std::uint8_t>(version);
        Seal(file);
        const Error error = ErrorOf(file);
        EXPECT_TRUE(IsOfAnotherVersion(file));
        EXPECT_THAT(error.Expected(), HasSubstr("this version of the editor (format 1)"));
        EXPECT_THAT(error.Found(),
                    HasSubstr("format " + std::to_string(version) + ", which another version"));
    }
}

// A right checksum does not make every value one that the editor can work with.
TEST(UnsavedWork, ValuesThatNoTableMayHoldAreRefused) {
    auto campaign = RandomTables(8);
    campaign->TargetTable[3].code = 308;
    EXPECT_EQ(ErrorOf(EncodeUnsavedWork(someWork, *campaign)).Expected(), "a target's code from 0 to 307");
    for (const double metres : {-1.0, 4100.5, std::numeric_limits<double>::quiet_NaN()}) {
        campaign = RandomTables(8);
        campaign->RailwayTable[893].fineOffsets[3] = metres;
        EXPECT_EQ(ErrorOf(EncodeUnsavedWork(someWork, *campaign)).Expected(), "0 to 4100 metres");
    }
    Bytes file = EncodeUnsavedWork({}, *std::make_unique<Campaign>());
    file[23] = 255;  // of the length of the project's path
    Seal(file);
    EXPECT_THAT(ErrorOf(file).Expected(), HasSubstr("a field of"));
    file[23] = 0;
    file[20] = 8;  // it ends later, so that everything behind it does so too
    Seal(file);
    EXPECT_EQ(ErrorOf(file).Kind(), ErrorKind::IndexOutOfRange);
}

}  // namespace
}  // namespace vtr
