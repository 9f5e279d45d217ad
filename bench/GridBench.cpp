// How much faster the editor builds the grid and reorders targets than a program that takes each step.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "../tests/project/PlainGrid.h"
#include "../tests/project/PlainSweep.h"
#include "Comparison.h"
#include "GridData.h"
#include "ReorderTargets.h"

namespace {

using namespace vtr;

/// Places targets all over the map in no order, with texts as in a loaded campaign.
void Scatter(Campaign &campaign, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::int16_t> column(0, 639);
    std::uniform_int_distribution<std::int16_t> row(0, 319);
    for (std::size_t t = 0; t < targetTotal; ++t) {
        campaign.TargetTable[t].x = column(random);
        campaign.TargetTable[t].y = row(random);
        campaign.TargetTable[t].name = "Bridge over the river " + std::to_string(t);
        campaign.TargetTable[t].fineOffsets = {static_cast<double>(random() % 4100), 1025.00390625};
    }
}

/// The shortest time of several runs in seconds, without the time of prepare.
template <typename Prepare, typename Work>
double ShortestTime(int runs, Prepare prepare, Work work) {
    double shortest = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        prepare();
        shortest = std::min(shortest, SecondsOf(work));
    }
    return shortest;
}

}  // namespace

int main() {
    std::vector<std::unique_ptr<Campaign>> campaigns(16);
    for (auto &campaign : campaigns)
        campaign = std::make_unique<Campaign>();
    const auto forAll = [&campaigns](auto work) {
        return [&campaigns, work] {
            for (const auto &campaign : campaigns)
                work(*campaign);
        };
    };

    unsigned seed = 0;
    double progress = 0;
    const auto scatter = forAll([&seed](Campaign &campaign) { Scatter(campaign, ++seed); });
    const auto sweep =
        forAll([](Campaign &campaign) { benchmark::DoNotOptimize(PlainSweep(campaign.TargetTable)); });
    const auto reorder = forAll([&progress](Campaign &campaign) {
        benchmark::DoNotOptimize(ReorderTargets(campaign, [&progress](double step) { progress += step; }));
    });
    const double sweepTime = ShortestTime(3, scatter, sweep);
    const double reorderTime = ShortestTime(100, scatter, reorder);
    ReportAtLeast("reorder 16 campaigns", {reorderTime, sweepTime}, "step by step", 4000);

    const auto passes =
        forAll([](Campaign &campaign) { benchmark::DoNotOptimize(PlainBuildGrid(campaign.TargetTable)); });
    const auto build =
        forAll([](Campaign &campaign) { benchmark::DoNotOptimize(BuildGrid(campaign.TargetTable)); });
    const auto keep = [] {};
    const double passesTime = ShortestTime(100, keep, passes);
    const double buildTime = ShortestTime(100, keep, build);
    ReportAtLeast("grids of 16 campaigns", {buildTime, passesTime}, "step by step", 10);

    const bool allBuilt = std::ranges::none_of(
        campaigns, [](const auto &campaign) { return BuildGrid(campaign->TargetTable).misfit.has_value(); });
    return progress > 0 && allBuilt ? 0 : 1;
}
