// How much faster the grid and the reordering are made than by taking their steps one by one.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <vector>

#include "../tests/project/LiteralGrid.h"
#include "../tests/project/LiteralSweep.h"
#include "GridData.h"
#include "ReorderTargets.h"

namespace {

using namespace vtr;

/// Targets all over the map in no order, with the texts that a loaded campaign has.
void Scatter(Campaign &campaign, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::int16_t> column(0, 639);
    std::uniform_int_distribution<std::int16_t> row(0, 319);
    for (std::size_t t = 0; t < targetTotal; ++t) {
        campaign.TargetTable[t].x = column(random);
        campaign.TargetTable[t].y = row(random);
        campaign.TargetTable[t].name = "Bridge over the river " + std::to_string(t);
        campaign.flx_targets[t] = {std::to_string(random() % 4100), "1025.00390625"};
    }
}

constexpr int campaignTotal = 16;
using Campaigns = std::vector<std::unique_ptr<Campaign>>;

/// The time in seconds that work takes for one campaign, over all of them in turn: the shortest of several
/// runs. What prepare does to each before a run is not timed.
template <typename Prepare, typename Work>
double ShortestTime(const Campaigns &campaigns, int runs, Prepare prepare, Work work) {
    double shortest = 1e9;
    for (int run = 0; run < runs; ++run) {
        for (const auto &campaign : campaigns)
            prepare(*campaign);
        const auto start = std::chrono::steady_clock::now();
        for (const auto &campaign : campaigns)
            work(*campaign);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        shortest = std::min(shortest, taken.count() / campaignTotal);
    }
    return shortest;
}

void Report(const char *what, double ours, double literal, double wanted) {
    std::printf("%-8s %10.2f us, step by step %10.2f us: %8.1f times as fast (wanted: %.0f)\n", what,
                ours * 1e6, literal * 1e6, literal / ours, wanted);
}

}  // namespace

int main() {
    Campaigns campaigns;
    for (int i = 0; i < campaignTotal; ++i)
        campaigns.push_back(std::make_unique<Campaign>());
    unsigned seed = 0;
    double progress = 0;
    const auto scatter = [&seed](Campaign &campaign) { Scatter(campaign, ++seed); };
    const auto reorder = [&progress](Campaign &campaign) {
        benchmark::DoNotOptimize(ReorderTargets(campaign, [&progress](double step) { progress += step; }));
    };
    const auto keep = [](Campaign &) {};

    const double sweep = ShortestTime(campaigns, 3, scatter, [](Campaign &campaign) {
        benchmark::DoNotOptimize(LiteralSweep(campaign.TargetTable));
    });
    Report("reorder", ShortestTime(campaigns, 100, scatter, reorder), sweep, 4000);

    const double passes = ShortestTime(campaigns, 100, keep, [](Campaign &campaign) {
        benchmark::DoNotOptimize(LiteralBuildGrid(campaign.TargetTable));
    });
    const double build = ShortestTime(campaigns, 100, keep, [](Campaign &campaign) {
        benchmark::DoNotOptimize(BuildGrid(campaign.TargetTable));
    });
    Report("grid", build, passes, 10);

    const bool allBuilt = std::ranges::none_of(
        campaigns, [](const auto &campaign) { return BuildGrid(campaign->TargetTable).misfit.has_value(); });
    return progress > 0 && allBuilt ? 0 : 1;
}
