#include "ReorderTargets.h"

#include <algorithm>
#include <utility>

namespace vtr {

namespace {

/// The sweep goes over the map column by column and also sees this many columns to the right.
constexpr int columnsAhead = 3;

using TargetOrder = std::array<std::size_t, targetTotal>;

bool SweepMeets(const TargetRecord &target) {
    return target.x >= 0 && target.x < mapWidth + columnsAhead && target.y >= 0 && target.y < mapHeight;
}

/// Moves the entry at order[n] to place n. Follows each ring of entries that change places, because that is
/// faster than a second table.
void Rearrange(std::array<TargetRecord, targetTotal> &table, const TargetOrder &order) {
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
    for (int column = 0; column < mapWidth; ++column)
        addProgress(100.0 / mapWidth);
    const auto &targets = campaign.TargetTable;
    if (!std::ranges::all_of(targets, SweepMeets))
        return std::nullopt;

    // Each key combines column, row and old index in one number.
    std::array<std::size_t, targetTotal> keys{};
    for (std::size_t t = 0; t < targetTotal; ++t) {
        const auto column = static_cast<std::size_t>(std::max(targets[t].x - columnsAhead, 0));
        const auto row = static_cast<std::size_t>(targets[t].y);
        keys[t] = (column * mapHeight + row) * targetTotal + t;
    }
    std::ranges::sort(keys);
    TargetOrder order{};
    std::ranges::transform(keys, order.begin(), [](std::size_t key) { return key % targetTotal; });

    NewTargetIndices newIndices{};
    for (std::size_t n = 0; n < targetTotal; ++n)
        newIndices[order[n]] = n;
    Rearrange(campaign.TargetTable, order);
    return newIndices;
}

}  // namespace vtr
