#include "ReorderTargets.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vtr {

namespace {

/// The sweep goes over the map column by column and sees this many columns more to the right.
constexpr int columnsAhead = 3;

using TargetOrder = std::array<std::size_t, targetTotal>;

bool SweepMeets(const TargetRecord &target) {
    return target.x >= 0 && target.x < terrainWidth + columnsAhead && target.y >= 0 &&
           target.y < terrainHeight;
}

/// order sorted by the keys (0 to below Keys) of the targets that it names; equal ones stay as they stood.
template <std::size_t Keys, typename KeyOf>
TargetOrder SortedBy(const TargetOrder &order, KeyOf keyOf) {
    std::array<std::size_t, Keys + 1> starts{};
    for (const std::size_t t : order)
        ++starts[keyOf(t) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    TargetOrder sorted{};
    for (const std::size_t t : order)
        sorted[starts[keyOf(t)]++] = t;
    return sorted;
}

/// Puts the entry at order[n] to place n, going round each ring of entries that change places.
template <typename Table>
void Rearrange(Table &table, const TargetOrder &order) {
    std::array<bool, targetTotal> done{};
    for (std::size_t start = 0; start < targetTotal; ++start) {
        if (done[start] || order[start] == start)
            continue;
        auto first = std::move(table[start]);
        std::size_t at = start;
        for (; order[at] != start; at = order[at]) {
            table[at] = std::move(table[order[at]]);
            done[at] = true;
        }
        table[at] = std::move(first);
        done[at] = true;
    }
}

}  // namespace

std::optional<NewTargetIndices> ReorderTargets(Campaign &campaign,
                                               const std::function<void(double)> &addProgress) {
    for (int column = 0; column < terrainWidth; ++column)
        addProgress(100.0 / terrainWidth);
    const auto &targets = campaign.TargetTable;
    if (!std::ranges::all_of(targets, SweepMeets))
        return std::nullopt;

    TargetOrder order{};
    std::iota(order.begin(), order.end(), std::size_t{0});
    order =
        SortedBy<terrainHeight>(order, [&](std::size_t t) { return static_cast<std::size_t>(targets[t].y); });
    order = SortedBy<terrainWidth>(order, [&](std::size_t t) {
        return static_cast<std::size_t>(std::max(targets[t].x - columnsAhead, 0));
    });

    NewTargetIndices newIndices{};
    for (std::size_t n = 0; n < targetTotal; ++n)
        newIndices[order[n]] = n;
    Rearrange(campaign.TargetTable, order);
    return newIndices;
}

}  // namespace vtr
