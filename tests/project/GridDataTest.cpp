#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>

#include "ErrorThrownBy.h"
#include "GridData.h"
#include "PlainGrid.h"
#include "ReorderTargets.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

namespace vtr {
namespace {

using Targets = std::array<TargetRecord, targetTotal>;

Targets TargetsAt(std::int16_t x, std::int16_t y) {
    Targets targets;
    for (TargetRecord &target : targets) {
        target.x = x;
        target.y = y;
    }
    return targets;
}

/// Targets in every second column of cells, row by row: a table that fits.
Targets SpreadTargets() {
    Targets targets;
    for (std::size_t t = 0; t < targetTotal; ++t) {
        targets[t].x = static_cast<std::int16_t>(8 + 32 * (t % 20));
        targets[t].y = static_cast<std::int16_t>(8 + 16 * (t / 20));
    }
    return targets;
}

const GridCell &CellAt(const Grid &grid, int row, int column) {
    return grid[static_cast<std::size_t>((row - 1) * gridColumns + column - 1)];
}

/// Targets within so many columns and rows of a corner of the map, which may lie outside of it.
Targets RandomTargets(std::mt19937 &random, int firstColumn, int columns, int firstRow, int rows) {
    std::uniform_int_distribution<int> column(firstColumn, firstColumn + columns - 1);
    std::uniform_int_distribution<int> row(firstRow, firstRow + rows - 1);
    Targets targets;
    for (TargetRecord &target : targets) {
        target.x = static_cast<std::int16_t>(column(random));
        target.y = static_cast<std::int16_t>(row(random));
    }
    return targets;
}

struct Outcomes {
    int built = 0;
    int misfits = 0;
    int overflows = 0;
};

void ExpectLikePlain(const Targets &targets, Outcomes &outcomes) {
    const PlainGrid plain = PlainBuildGrid(targets);
    try {
        const GridResult result = BuildGrid(targets);
        ASSERT_FALSE(plain.overflow);
        ASSERT_EQ(result.misfit, plain.misfit);
        if (result.misfit) {
            ASSERT_EQ(MessageOfMisfit(*result.misfit),
                      "Failed to create GRIDDATA.DAT.  Target #" + std::to_string(*plain.misfit) +
                          " did not fit.  Please try a different arrangement and try again.");
        }
        for (int row = 1; row <= gridRows; ++row)
            for (int column = 1; column <= gridColumns; ++column) {
                const auto r = static_cast<std::size_t>(row);
                const auto c = static_cast<std::size_t>(column);
                ASSERT_EQ(CellAt(result.grid, row, column).first, plain.first[r][c]) << row << ", " << column;
                ASSERT_EQ(CellAt(result.grid, row, column).count, plain.count[r][c]) << row << ", " << column;
            }
        ++(result.misfit ? outcomes.misfits : outcomes.built);
    } catch (const Error &error) {
        ASSERT_EQ(error.Kind(), ErrorKind::Overflow);
        ASSERT_TRUE(plain.overflow);
        ASSERT_EQ(error.Item(), "target " + std::to_string(*plain.overflow));
        ++outcomes.overflows;
    }
}

TEST(GridData, Of1000RandomTablesIsWhatTheStepsOneByOneGive) {
    std::mt19937 random(1);
    Outcomes outcomes;
    for (int i = 0; i < 1000 && !::testing::Test::HasFatalFailure(); ++i) {
        Targets targets;
        switch (i % 5) {
            case 0:  // all over the map
                targets = RandomTargets(random, 0, 641, 0, 321);
                break;
            case 1:  // a few of them outside
                targets = RandomTargets(random, -1, 643, -1, 323);
                break;
            case 2:  // too crowded for the cells around
                targets = RandomTargets(random, static_cast<int>(random() % 600), 40, 100, 200);
                break;
            case 3: {  // sorted, as the user saves them
                auto campaign = std::make_unique<Campaign>();
                campaign->TargetTable = RandomTargets(random, 0, 640, 0, 320);
                ReorderTargets(*campaign, [](double) {});
                targets = campaign->TargetTable;
                break;
            }
            default:  // heaps in a few places, up to one heap for all
                targets = RandomTargets(random, 320, 1 + static_cast<int>(random() % 3), 160, 1);
                if (random() % 2 == 0)
                    targets[random() % targetTotal].x = 10;
                break;
        }
        ExpectLikePlain(targets, outcomes);
    }
    EXPECT_GT(outcomes.built, 100);
    EXPECT_GT(outcomes.misfits, 100);
    EXPECT_GT(outcomes.overflows, 50);
}

TEST(GridData, OfATargetAtEveryColumnAndRowIsWhatTheStepsOneByOneGive) {
    Outcomes outcomes;
    for (std::int16_t pixel = -2; pixel <= 643; ++pixel) {
        Targets targets = SpreadTargets();
        // Five in one place that other targets come between use up all cells that they may be filed in.
        for (std::size_t t = 0; t < 10; t += 2) {
            targets[t].x = pixel;
            targets[t].y = static_cast<std::int16_t>(pixel / 2);
        }
        ExpectLikePlain(targets, outcomes);
    }
    EXPECT_GT(outcomes.built, 500);
    EXPECT_GT(outcomes.misfits, 0);
}

TEST(GridData, OfASortedTableWithTargetsSpreadOverTheMapBuildsWithoutFailure) {
    std::mt19937 random(2);
    auto campaign = std::make_unique<Campaign>();
    campaign->TargetTable = RandomTargets(random, 0, 640, 0, 320);
    ASSERT_TRUE(ReorderTargets(*campaign, [](double) {}));
    EXPECT_FALSE(BuildGrid(campaign->TargetTable).misfit);
}

TEST(GridData, Target0At0And0OpensCell1And1) {
    Targets targets = SpreadTargets();
    targets[0].x = 0;
    targets[0].y = 0;
    EXPECT_EQ(CellAt(BuildGrid(targets).grid, 1, 1), (GridCell{0, 1}));
}

TEST(GridData, Targets0And1At100And100ShareACellAndTarget2At300And200OpensAnother) {
    Targets targets = SpreadTargets();
    targets[0].x = targets[1].x = 100;
    targets[0].y = targets[1].y = 100;
    targets[2].x = 300;
    targets[2].y = 200;
    const Grid grid = BuildGrid(targets).grid;
    // 100 lies in the windows 64..112, 80..128 and 96..144 of columns and rows 6, 7 and 8.
    EXPECT_EQ(CellAt(grid, 6, 6), (GridCell{0, 2}));
    EXPECT_EQ(CellAt(grid, 12, 18), (GridCell{2, 1}));
}

TEST(GridData, ATargetAtColumn48MayBeFiledInColumns2And3And4ButNotIn5) {
    // Every target at column 48 and row 8 is followed by one far away, so that each needs a cell of its own:
    // rows 1 and 2 of columns 2, 3 and 4 hold six of them.
    Targets targets = SpreadTargets();
    for (std::size_t i = 0; i < 7; ++i) {
        targets[2 * i].x = 48;
        targets[2 * i].y = 8;
        targets[2 * i + 1].x = 600;
        targets[2 * i + 1].y = static_cast<std::int16_t>(20 + 40 * i);
    }
    const GridResult result = BuildGrid(targets);
    EXPECT_EQ(result.misfit, 12);
    const Grid &grid = result.grid;
    for (const auto &[row, column, first] :
         {std::array{1, 2, 0}, {1, 3, 2}, {1, 4, 4}, {2, 2, 6}, {2, 3, 8}, {2, 4, 10}})
        EXPECT_EQ(CellAt(grid, row, column), (GridCell{static_cast<std::int16_t>(first), 1}));
    EXPECT_EQ(CellAt(grid, 1, 5), GridCell{});
    EXPECT_EQ(CellAt(grid, 1, 1), GridCell{});
}

TEST(GridData, ATargetWhoseRowLiesOutside0To320MakesTheBuildFailAtItsIndex) {
    for (const std::int16_t y : std::array<std::int16_t, 4>{1759, 321, -1, -32768}) {
        Targets targets = SpreadTargets();
        targets[117].y = y;
        EXPECT_EQ(BuildGrid(targets).misfit, 117) << y;
    }
    for (const std::int16_t x : std::array<std::int16_t, 4>{641, -1, 32767, -32768}) {
        Targets targets = SpreadTargets();
        targets[301].x = x;
        EXPECT_EQ(BuildGrid(targets).misfit, 301) << x;
    }
}

TEST(GridData, ATargetAtRow320OrColumn640IsFiled) {
    Targets targets = SpreadTargets();
    targets[301].x = 640;
    targets[301].y = 320;
    const GridResult result = BuildGrid(targets);
    EXPECT_FALSE(result.misfit);
    EXPECT_EQ(CellAt(result.grid, 19, 39), (GridCell{301, 1}));
}

TEST(GridData, A256thTargetInOneCellIsAnOverflow) {
    Targets targets = TargetsAt(8, 8);
    // The 256th from target 20 on; the runs before it were cut at targets 17 and 19.
    targets[19].x = 600;
    try {
        BuildGrid(targets, "GRIDDATA.DAT");
        FAIL();
    } catch (const Error &error) {
        EXPECT_STREQ(error.what(),
                     "overflow in \"GRIDDATA.DAT\" (offset 8, target 275): expected a number from 0 to 255, "
                     "found 256");
    }
    for (std::size_t t = 275; t < targetTotal; ++t)
        targets[t] = SpreadTargets()[t];
    EXPECT_EQ(CellAt(BuildGrid(targets).grid, 1, 2), (GridCell{20, 255}));
}

TEST(GridData, ExtendsARunRatherThanOpeningACellThatComesFirst) {
    Targets targets = SpreadTargets();
    targets[0].x = 100;
    targets[1].x = 80;  // may lie in columns 4, 5 and 6, of which 6 holds target 0
    targets[2].x = 600;
    EXPECT_EQ(CellAt(BuildGrid(targets).grid, 1, 6), (GridCell{0, 2}));
}

TEST(GridData, IsEncodedAs8BytesACellWithTheFirstIndexAtByte4) {
    Grid grid{};
    grid[0] = {0, 7};
    grid[41] = {300, 2};
    grid[799] = {301, 255};
    Bytes expected(6400, 0);
    expected[0] = 7;
    expected[328] = 2;
    expected[332] = 44;
    expected[333] = 1;
    expected[6392] = 255;
    expected[6396] = 45;
    expected[6397] = 1;
    EXPECT_EQ(EncodeGrid(grid), expected);
}

class GridDataFile : public ::testing::Test {
  protected:
    GridDataFile() { campaign->TargetTable = SpreadTargets(); }

    std::string Expected() const {
        const PlainGrid grid = PlainBuildGrid(campaign->TargetTable);
        std::string bytes;
        for (std::size_t row = 1; row <= 20; ++row)
            for (std::size_t column = 1; column <= 40; ++column) {
                const int first = grid.first[row][column];
                for (const int byte : {grid.count[row][column], 0, 0, 0, first % 256, first / 256, 0, 0})
                    bytes += static_cast<char>(byte);
            }
        return bytes;
    }

    const TemporaryFolder folder;
    const std::string path = folder.Path() + "GRIDDATA.DAT";
    const std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

TEST_F(GridDataFile, IsMadeWhenThereIsNone) {
    EXPECT_EQ(WriteGridData(path, *campaign), std::nullopt);
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), Expected());
    EXPECT_EQ(Expected().size(), 6400U);
}

TEST_F(GridDataFile, KeepsWhatAnExistingFileHasBeyond6400Bytes) {
    const std::string tail("\xFFtail\0\x1A", 7);
    folder.Make("GRIDDATA.DAT", std::string(6400, '\xAA') + tail);
    EXPECT_EQ(WriteGridData(path, *campaign), std::nullopt);
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), Expected() + tail);
}

TEST_F(GridDataFile, WhoseTailIsTooLargeToBeTrueIsRefusedBeforeItIsRead) {
    folder.Make("GRIDDATA.DAT", "old");
    std::filesystem::resize_file(path, std::uintmax_t{4} << 30);
    const SystemCalls calls;
    EXPECT_EQ(KindThrownBy([this] { WriteGridData(path, *campaign); }), ErrorKind::FileTooLarge);
    EXPECT_EQ(calls.BytesRead(), 0U);
    EXPECT_EQ(std::filesystem::file_size(path), std::uintmax_t{4} << 30);
}

TEST_F(GridDataFile, KeepsTheTailOfAFileNamedInAnotherLetterCase) {
    folder.Make("griddata.dat", std::string(6401, 'x'));
    EXPECT_EQ(WriteGridData(path, *campaign), std::nullopt);
    EXPECT_EQ(folder.Content("griddata.dat"), Expected() + "x");
    EXPECT_EQ(folder.Names().size(), 1U);
}

TEST_F(GridDataFile, ReplacesAShorterFile) {
    folder.Make("GRIDDATA.DAT", "short");
    EXPECT_EQ(WriteGridData(path, *campaign), std::nullopt);
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), Expected());
}

TEST_F(GridDataFile, IsLeftAloneWhenATargetDoesNotFit) {
    folder.Make("GRIDDATA.DAT", "old");
    campaign->TargetTable[5].y = 1759;
    EXPECT_EQ(WriteGridData(path, *campaign), 5);
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), "old");
    EXPECT_EQ(WriteGridData(folder.Path() + "new.dat", *campaign), 5);
    EXPECT_EQ(folder.Names(), std::set<std::string>{"GRIDDATA.DAT"});
}

TEST_F(GridDataFile, WithAnEmptyPathIsOnlyChecked) {
    EXPECT_EQ(WriteGridData("", *campaign), std::nullopt);
    campaign->TargetTable[301].y = 321;
    EXPECT_EQ(WriteGridData("", *campaign), 301);
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(GridDataFile, OverflowNamesTheFile) {
    campaign->TargetTable = TargetsAt(8, 8);
    folder.Make("GRIDDATA.DAT", "old");
    try {
        WriteGridData(path, *campaign);
        FAIL();
    } catch (const Error &error) {
        EXPECT_EQ(error.File(), path);
        EXPECT_EQ(error.Offset(), 0);
    }
    EXPECT_EQ(folder.Content("GRIDDATA.DAT"), "old");
}

TEST(GridData, MisfitIsToldWithItsNumber) {
    EXPECT_EQ(
        MessageOfMisfit(17),
        "Failed to create GRIDDATA.DAT.  Target #17 did not fit.  Please try a different arrangement and "
        "try again.");
}

}  // namespace
}  // namespace vtr
