#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>

#include "PlainSweep.h"
#include "ReorderTargets.h"

namespace vtr {
namespace {

using Targets = std::array<TargetRecord, targetTotal>;

/// A campaign every field of whose targets and every fine offset tells which target it belonged to.
std::unique_ptr<Campaign> MarkedCampaign() {
    auto campaign = std::make_unique<Campaign>();
    for (std::size_t t = 0; t < targetTotal; ++t) {
        const auto mark = static_cast<std::uint16_t>(t);
        const auto next = [mark](int step) { return static_cast<std::uint16_t>(mark + step); };
        campaign->TargetTable[t] = {
            0,          0,          next(1000), next(2000), "name " + std::to_string(t),
            next(3000), next(4000), next(5000), next(6000)};
        campaign->TargetTable[t].fineOffsets = {static_cast<double>(t) + .25, static_cast<double>(t) + .75};
        campaign->TargetTable[t].unknown.fill(static_cast<std::uint8_t>(t));
    }
    return campaign;
}

/// Reorders campaign and compares everything with the order wanted, old indices in their new order.
void ExpectReorderedTo(const std::vector<std::size_t> &order, Campaign &campaign) {
    const auto before = std::make_unique<Campaign>(campaign);
    const std::optional<NewTargetIndices> newIndices = ReorderTargets(campaign, [](double) {});
    if (order.size() < targetTotal) {
        EXPECT_FALSE(newIndices);
        EXPECT_TRUE(campaign == *before);
        return;
    }
    ASSERT_TRUE(newIndices);
    for (std::size_t n = 0; n < targetTotal; ++n) {
        ASSERT_EQ(campaign.TargetTable[n], before->TargetTable[order[n]]) << n;
        ASSERT_EQ((*newIndices)[order[n]], n);
    }
}

void PlaceAtRandom(Campaign &campaign, std::mt19937 &random, int columns, int rows) {
    std::uniform_int_distribution<int> column(0, columns - 1);
    std::uniform_int_distribution<int> row(0, rows - 1);
    for (TargetRecord &target : campaign.TargetTable) {
        target.x = static_cast<std::int16_t>(column(random));
        target.y = static_cast<std::int16_t>(row(random));
    }
}

/// Each takes a quarter of the tables: a thousand sweeps take more than a minute, so the parts run side by
/// side.
class QuarterOf1000RandomTables : public ::testing::TestWithParam<int> {};

TEST_P(QuarterOf1000RandomTables, IsReorderedAsTheSweepDoes) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    const auto marked = MarkedCampaign();
    int failures = 0;
    for (int i = 0; i < 250; ++i) {
        auto campaign = std::make_unique<Campaign>(*marked);
        PlaceAtRandom(*campaign, random, i % 3 == 0 ? 12 : i % 3 == 1 ? 643 : 640, i % 2 == 0 ? 5 : 320);
        if (i % 10 == 0)
            campaign->TargetTable[random() % targetTotal].x = i % 20 == 0 ? 643 : -1;
        if (i % 10 == 1)
            campaign->TargetTable[random() % targetTotal].y = i % 20 == 1 ? 320 : -1;
        const std::vector<std::size_t> order = PlainSweep(campaign->TargetTable);
        failures += order.size() < targetTotal ? 1 : 0;
        ASSERT_NO_FATAL_FAILURE(ExpectReorderedTo(order, *campaign)) << i;
    }
    EXPECT_EQ(failures, 50);
}

INSTANTIATE_TEST_SUITE_P(Parts, QuarterOf1000RandomTables, ::testing::Range(1, 5));

TEST(ReorderTargets, KeepsTargetsAtColumns1And3OfOneRowInTheirOldOrder) {
    auto campaign = MarkedCampaign();
    for (TargetRecord &target : campaign->TargetTable)
        target.x = 100;
    campaign->TargetTable[10].x = 3;
    campaign->TargetTable[20].x = 1;
    campaign->TargetTable[30].x = 4;
    const auto newIndices = ReorderTargets(*campaign, [](double) {});
    ASSERT_TRUE(newIndices);
    EXPECT_EQ((*newIndices)[10], 0U);
    EXPECT_EQ((*newIndices)[20], 1U);
    EXPECT_EQ((*newIndices)[30], 2U);
    EXPECT_EQ(campaign->TargetTable[0].name, "name 10");
    EXPECT_EQ(campaign->TargetTable[1].name, "name 20");
}

TEST(ReorderTargets, TellsWhereTheSelectedTargetWentAndTakesItsFineOffsetsAlong) {
    auto campaign = MarkedCampaign();
    for (std::size_t t = 0; t < targetTotal; ++t)
        campaign->TargetTable[t].x = static_cast<std::int16_t>(500 - t);
    const auto newIndices = ReorderTargets(*campaign, [](double) {});
    ASSERT_TRUE(newIndices);
    EXPECT_EQ((*newIndices)[0], 301U);
    EXPECT_EQ((*newIndices)[300], 1U);
    EXPECT_EQ(campaign->TargetTable[1].fineOffsets, (FineOffsets<2>{300.25, 300.75}));
}

TEST(ReorderTargets, LeavesEverythingAsItIsWhenATargetIsNeverMet) {
    struct Row {
        std::int16_t x;
        std::int16_t y;
        bool met;
    };
    for (const Row &row : {Row{642, 319, true}, Row{643, 0, false}, Row{0, 0, true}, Row{-1, 0, false},
                           Row{0, 320, false}, Row{0, -1, false}, Row{0, 1759, false}, Row{32767, 0, false},
                           Row{-32768, 0, false}, Row{0, -32768, false}}) {
        auto campaign = MarkedCampaign();
        campaign->TargetTable[0].x = 7;
        campaign->TargetTable[301].x = row.x;
        campaign->TargetTable[301].y = row.y;
        const auto before = std::make_unique<Campaign>(*campaign);
        EXPECT_EQ(ReorderTargets(*campaign, [](double) {}).has_value(), row.met) << row.x << ", " << row.y;
        EXPECT_EQ(*campaign == *before, !row.met);
    }
}

TEST(ReorderTargets, RaisesTheProgressByThe640thPartOf100ForEachColumnAlsoWhenItFails) {
    for (const std::int16_t x : std::array<std::int16_t, 2>{0, 643}) {
        auto campaign = MarkedCampaign();
        campaign->TargetTable[0].x = x;
        std::vector<double> steps;
        ReorderTargets(*campaign, [&steps](double step) { steps.push_back(step); });
        EXPECT_EQ(steps, std::vector<double>(640, 0.15625));
    }
}

TEST(ReorderTargets, FailureIsTold) {
    EXPECT_EQ(reorderFailedMessage, "GRIDDATA reordering failed somewhere.  BUGGER!");
}

}  // namespace
}  // namespace vtr
