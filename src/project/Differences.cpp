#include "Differences.h"

#include <algorithm>
#include <utility>

namespace vtr {

namespace {

/// In the order of Table.
constexpr std::array<std::size_t, std::variant_size_v<TableRow>> rowTotals{
    targetTotal, targetNameTotal, airfieldTotal, railwayLineTotal, 1, frontlineTotal *frontlinePointTotal};

/// Writes a row into its table.
struct SetRow {
    Campaign &campaign;
    std::size_t row;

    void operator()(const TargetRecord &target) const { campaign.TargetTable[row] = target; }
    void operator()(const std::string &name) const { campaign.TargetNameTable[row] = name; }
    void operator()(const AirfieldRecord &airfield) const { campaign.AirfieldTable[row] = airfield; }
    void operator()(const RailwayLine &line) const { campaign.RailwayTable[row] = line; }
    void operator()(const RailwayCounts &counts) const {
        campaign.RailwayLineCount = counts.lines;
        campaign.firstDisabledRailwayLine = counts.firstDisabled;
    }
    void operator()(const FrontlinePoint &point) const {
        campaign.FrontlineTable[row / frontlinePointTotal].points[row % frontlinePointTotal] = point;
    }
};

/// Much faster than looking at copies of the rows.
bool IsSame(Table table, const Campaign &before, const Campaign &after) {
    switch (table) {
        case Table::Targets:
            return before.TargetTable == after.TargetTable;
        case Table::TargetNames:
            return before.TargetNameTable == after.TargetNameTable;
        case Table::Airfields:
            return before.AirfieldTable == after.AirfieldTable;
        case Table::RailwayLines:
            return before.RailwayTable == after.RailwayTable;
        case Table::RailwayCounts:
            return before.RailwayLineCount == after.RailwayLineCount &&
                   before.firstDisabledRailwayLine == after.firstDisabledRailwayLine;
        case Table::FrontlinePoints:
            break;
    }
    return before.FrontlineTable == after.FrontlineTable;
}

}  // namespace

std::size_t RowTotal(Table table) {
    return rowTotals[static_cast<std::size_t>(table)];
}

TableRow RowAt(const Campaign &campaign, Table table, std::size_t row) {
    switch (table) {
        case Table::Targets:
            return campaign.TargetTable[row];
        case Table::TargetNames:
            return campaign.TargetNameTable[row];
        case Table::Airfields:
            return campaign.AirfieldTable[row];
        case Table::RailwayLines:
            return campaign.RailwayTable[row];
        case Table::RailwayCounts:
            return RailwayCounts{campaign.RailwayLineCount, campaign.firstDisabledRailwayLine};
        case Table::FrontlinePoints:
            break;
    }
    return campaign.FrontlineTable[row / frontlinePointTotal].points[row % frontlinePointTotal];
}

Differences DifferencesOf(const Campaign &before, const Campaign &after) {
    Differences differences;
    for (std::size_t index = 0; index < rowTotals.size(); ++index) {
        const auto table = static_cast<Table>(index);
        if (IsSame(table, before, after))
            continue;
        for (std::size_t row = 0; row < rowTotals[index]; ++row) {
            TableRow was = RowAt(before, table, row);
            TableRow is = RowAt(after, table, row);
            if (was != is)
                differences.push_back({row, std::move(was), std::move(is)});
        }
    }
    return differences;
}

void Apply(const Differences &differences, Direction direction, Campaign &campaign) {
    for (const Difference &difference : differences)
        std::visit(SetRow{campaign, difference.row},
                   direction == Direction::Forwards ? difference.after : difference.before);
}

void Join(Differences &differences, Differences following) {
    for (Difference &next : following) {
        const auto same = std::ranges::find_if(differences, [&next](const Difference &difference) {
            return difference.row == next.row && difference.In() == next.In();
        });
        if (same == differences.end())
            differences.push_back(std::move(next));
        else if (same->before == next.after)
            differences.erase(same);
        else
            same->after = std::move(next.after);
    }
}

KeptRows::KeptRows(const Campaign &campaign, const std::vector<TableRows> &rows) {
    for (const TableRows &some : rows) {
        const std::size_t total = RowTotal(some.table);
        const std::size_t first = std::min(some.first, total);
        const std::size_t count = std::min(some.count, total - first);
        rows_.reserve(rows_.size() + count);
        for (std::size_t row = first; row < first + count; ++row)
            rows_.push_back({row, RowAt(campaign, some.table, row)});
    }
}

Differences KeptRows::DifferencesTo(const Campaign &now) {
    Differences differences;
    for (Row &kept : rows_) {
        TableRow is = RowAt(now, static_cast<Table>(kept.value.index()), kept.row);
        if (kept.value != is)
            differences.push_back({kept.row, std::move(kept.value), std::move(is)});
    }
    return differences;
}

}  // namespace vtr
