#include <gmock/gmock.h>

#include <functional>
#include <memory>

#include "Differences.h"
#include "RandomCampaign.h"

namespace vtr {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<Table, 6> allTables{Table::Targets,      Table::TargetNames,   Table::Airfields,
                                         Table::RailwayLines, Table::RailwayCounts, Table::FrontlinePoints};

std::unique_ptr<Campaign> RandomTables(std::mt19937 &random) {
    auto campaign = std::make_unique<Campaign>();
    FillWithRandomTables(*campaign, random);
    FillWithRandomLines(*campaign, random);
    campaign->RailwayLineCount = static_cast<std::int16_t>(random() % railwayLineTotal);
    campaign->firstDisabledRailwayLine = static_cast<std::int16_t>(random() % railwayLineTotal);
    return campaign;
}

/// Gives some rows of any tables a new random value.
void ChangeSomeRows(Campaign &campaign, std::mt19937 &random) {
    const std::unique_ptr<Campaign> other = RandomTables(random);
    Differences some;
    for (int i = 0; i < 40; ++i) {
        const Table table = allTables[random() % allTables.size()];
        // Few rows, so that the same one is met again and may get its old value back.
        const std::size_t row = random() % std::min<std::size_t>(RowTotal(table), 5);
        some.push_back({row, {}, RowAt(*other, table, random() % RowTotal(table))});
    }
    Apply(some, Direction::Forwards, campaign);
}

/// An edit of one row.
struct OneRow {
    Table table;
    std::size_t row;
    std::function<void(Campaign &)> change;
};

const std::vector<OneRow> oneRowOfEachTable{
    {Table::Targets, 301, [](Campaign &campaign) { campaign.TargetTable[301].unknown[16] = 1; }},
    {Table::TargetNames, 307, [](Campaign &campaign) { campaign.TargetNameTable[307] = "Old mill"; }},
    {Table::Airfields, 161, [](Campaign &campaign) { campaign.AirfieldTable[161].yearSlots[3].german = 1; }},
    {Table::RailwayLines, 893, [](Campaign &campaign) { campaign.RailwayTable[893].fineOffsets[3] = 0.5; }},
    {Table::RailwayCounts, 0, [](Campaign &campaign) { campaign.RailwayLineCount = 7; }},
    {Table::RailwayCounts, 0, [](Campaign &campaign) { campaign.firstDisabledRailwayLine = 7; }},
    {Table::FrontlinePoints, 0, [](Campaign &campaign) { campaign.FrontlineTable[0].points[0].x = 1; }},
    {Table::FrontlinePoints, 599,
     [](Campaign &campaign) { campaign.FrontlineTable[19].points[29].on_map = flagSet; }},
};

class DifferencesTest : public ::testing::Test {
  protected:
    std::mt19937 random{2111};
    std::unique_ptr<Campaign> campaign = std::make_unique<Campaign>();
};

TEST_F(DifferencesTest, TheTablesHaveAsManyRowsAsTheGamesFiles) {
    std::vector<std::size_t> totals;
    for (const Table table : allTables)
        totals.push_back(RowTotal(table));
    EXPECT_THAT(totals, ElementsAre(302, 308, 162, 894, 1, 600));
}

TEST_F(DifferencesTest, ACampaignDoesNotDifferFromItself) {
    campaign = RandomTables(random);
    EXPECT_THAT(DifferencesOf(*campaign, *campaign), IsEmpty());
}

TEST_F(DifferencesTest, OneChangedRowIsOneDifferenceAndNoOther) {
    for (const OneRow &one : oneRowOfEachTable) {
        SCOPED_TRACE(static_cast<int>(one.table));
        const auto changed = std::make_unique<Campaign>(*campaign);
        one.change(*changed);
        const Differences differences = DifferencesOf(*campaign, *changed);
        ASSERT_EQ(differences.size(), 1);
        EXPECT_EQ(differences[0].In(), one.table);
        EXPECT_EQ(differences[0].row, one.row);
        EXPECT_EQ(differences[0].before, RowAt(*campaign, one.table, one.row));
        EXPECT_EQ(differences[0].after, RowAt(*changed, one.table, one.row));
    }
}

TEST_F(DifferencesTest, OneChangedRowIsAppliedForwardsAndBackwards) {
    for (const OneRow &one : oneRowOfEachTable) {
        SCOPED_TRACE(static_cast<int>(one.table));
        const auto changed = std::make_unique<Campaign>(*campaign);
        one.change(*changed);
        const Differences differences = DifferencesOf(*campaign, *changed);
        const auto applied = std::make_unique<Campaign>(*campaign);
        Apply(differences, Direction::Forwards, *applied);
        EXPECT_EQ(*applied, *changed);
        Apply(differences, Direction::Backwards, *applied);
        EXPECT_EQ(*applied, *campaign);
    }
}

TEST_F(DifferencesTest, DifferencesStandTableByTableAndRowByRow) {
    const auto changed = RandomTables(random);
    const Differences differences = DifferencesOf(*campaign, *changed);
    EXPECT_GT(differences.size(), 2000);
    EXPECT_TRUE(std::ranges::is_sorted(differences, {}, [](const Difference &difference) {
        return std::pair(difference.In(), difference.row);
    }));
}

TEST_F(DifferencesTest, AllThatDiffersBetweenRandomCampaignsIsAppliedEitherWay) {
    for (int round = 0; round < 20; ++round) {
        const std::unique_ptr<Campaign> before = RandomTables(random);
        const std::unique_ptr<Campaign> after = RandomTables(random);
        const Differences differences = DifferencesOf(*before, *after);
        *campaign = *before;
        Apply(differences, Direction::Forwards, *campaign);
        ASSERT_EQ(*campaign, *after);
        Apply(differences, Direction::Backwards, *campaign);
        ASSERT_EQ(*campaign, *before);
    }
}

TEST_F(DifferencesTest, OnlyWhatCanBeEditedDiffers) {
    const auto changed = std::make_unique<Campaign>();
    FillWithRandomPaths(*changed, random);
    changed->terrain[5] = 7;
    changed->ProjectLoaded = true;
    changed->paths.Targets = "TARGET.DAT";
    EXPECT_THAT(DifferencesOf(*campaign, *changed), IsEmpty());
}

Difference Rename(std::size_t row, std::string before, std::string after) {
    return {row, std::move(before), std::move(after)};
}

TEST(JoinTest, ARowThatChangesTwiceKeepsTheFirstBeforeAndTheLastAfter) {
    Differences differences{Rename(7, "A", "B")};
    Join(differences, {Rename(7, "B", "C")});
    EXPECT_THAT(differences, ElementsAre(Rename(7, "A", "C")));
}

TEST(JoinTest, ARowThatIsAgainWhatItWasDropsOut) {
    Differences differences{Rename(6, "A", "B"), Rename(7, "A", "B"), Rename(8, "A", "B")};
    Join(differences, {Rename(7, "B", "A")});
    EXPECT_THAT(differences, ElementsAre(Rename(6, "A", "B"), Rename(8, "A", "B")));
}

TEST(JoinTest, OtherRowsAreAppended) {
    const Difference counts{7, RailwayCounts{1, 2}, RailwayCounts{3, 4}};
    Differences differences{Rename(7, "A", "B")};
    Join(differences, {Rename(6, "A", "B"), counts});
    EXPECT_THAT(differences, ElementsAre(Rename(7, "A", "B"), Rename(6, "A", "B"), counts));
}

TEST_F(DifferencesTest, JoinedDifferencesAreThoseOfBothInTurn) {
    for (int round = 0; round < 50; ++round) {
        const std::unique_ptr<Campaign> first = RandomTables(random);
        const auto last = std::make_unique<Campaign>(*first);
        Differences joined;
        for (int step = 0; step < 4; ++step) {
            const auto before = std::make_unique<Campaign>(*last);
            if (random() % 4 == 0)
                *last = *first;
            else
                ChangeSomeRows(*last, random);
            Join(joined, DifferencesOf(*before, *last));
        }
        EXPECT_THAT(joined, ::testing::UnorderedElementsAreArray(DifferencesOf(*first, *last)));
        *campaign = *first;
        Apply(joined, Direction::Forwards, *campaign);
        ASSERT_EQ(*campaign, *last);
        Apply(joined, Direction::Backwards, *campaign);
        ASSERT_EQ(*campaign, *first);
    }
}

TEST_F(DifferencesTest, KeptRowsTellOnlyOfThemselves) {
    KeptRows kept(*campaign, {RowOf(Table::TargetNames, 7), {Table::Airfields, 3, 2}});
    for (const std::size_t row : {6U, 7U, 8U})
        campaign->TargetNameTable[row] = "Old mill";
    for (const std::size_t row : {2U, 4U, 5U})
        campaign->AirfieldTable[row].country = 6;
    campaign->TargetTable[7].x = 1;
    const Difference airfield{4, AirfieldRecord{}, campaign->AirfieldTable[4]};
    EXPECT_THAT(kept.DifferencesTo(*campaign), ElementsAre(Rename(7, "", "Old mill"), airfield));
}

TEST_F(DifferencesTest, KeptRowsThatAreAsTheyWereDoNotDiffer) {
    KeptRows kept(*campaign, {RowOf(Table::TargetNames, 7)});
    campaign->TargetNameTable[7] = "Old mill";
    campaign->TargetNameTable[7] = "";
    EXPECT_THAT(kept.DifferencesTo(*campaign), IsEmpty());
}

TEST_F(DifferencesTest, RowsOutsideTheirTableAreNotKept) {
    KeptRows kept(*campaign, {RowOf(Table::Targets, -1),
                              RowOf(Table::Targets, 302),
                              {Table::TargetNames, 306, 50},
                              {Table::RailwayCounts, 1, TableRows::all}});
    const std::unique_ptr<Campaign> now = RandomTables(random);
    now->TargetNameTable[306] = "Old mill";
    now->TargetNameTable[307] = "Old bridge";
    EXPECT_THAT(kept.DifferencesTo(*now),
                ElementsAre(Rename(306, "", "Old mill"), Rename(307, "", "Old bridge")));
}

TEST_F(DifferencesTest, KeptTablesTellOfAllTheirRows) {
    KeptRows kept(*campaign, {{Table::Targets},
                              {Table::TargetNames},
                              {Table::Airfields},
                              {Table::RailwayLines},
                              {Table::RailwayCounts},
                              {Table::FrontlinePoints}});
    const std::unique_ptr<Campaign> now = RandomTables(random);
    EXPECT_EQ(kept.DifferencesTo(*now), DifferencesOf(*campaign, *now));
}

TEST_F(DifferencesTest, TheRestOfATableIsKeptFromARowOn) {
    KeptRows kept(*campaign, {{Table::RailwayLines, 892}});
    for (const std::size_t row : {891U, 892U, 893U})
        campaign->RailwayTable[row].x1 = 5;
    const Differences differences = kept.DifferencesTo(*campaign);
    ASSERT_EQ(differences.size(), 2);
    EXPECT_EQ(differences[0].row, 892);
    EXPECT_EQ(differences[1].row, 893);
}

TEST(RowOfTest, IsOneRowOfItsTable) {
    constexpr TableRows rows = RowOf(Table::Airfields, 44);
    EXPECT_EQ(rows.table, Table::Airfields);
    EXPECT_EQ(rows.first, 44);
    EXPECT_EQ(rows.count, 1);
}

TEST_F(DifferencesTest, ARowOfTheFrontlinesIsAPointOfASlot) {
    campaign->FrontlineTable[3].points[5].x = 77;
    EXPECT_EQ(RowAt(*campaign, Table::FrontlinePoints, 95), TableRow(FrontlinePoint{77, 0, 0}));
}

}  // namespace
}  // namespace vtr
