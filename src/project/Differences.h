#pragma once

#include <string>
#include <variant>
#include <vector>

#include "Campaign.h"

namespace vtr {

/// How many railway lines the file has, and the first one that the user has disabled.
struct RailwayCounts {
    std::int16_t lines = 0;
    std::int16_t firstDisabled = 0;

    bool operator==(const RailwayCounts &) const = default;
};

/// A row of a table that can be edited. The alternatives are in the order of Table.
using TableRow =
    std::variant<TargetRecord, std::string, AirfieldRecord, RailwayLine, RailwayCounts, FrontlinePoint>;
enum class Table : std::uint8_t {
    Targets,
    TargetNames,
    Airfields,
    RailwayLines,
    RailwayCounts,   ///< has one row
    FrontlinePoints  ///< row = slot * frontlinePointTotal + point
};

/// Some rows of a table, by default all of them.
struct TableRows {
    static constexpr std::size_t all = static_cast<std::size_t>(-1);

    Table table;
    std::size_t first = 0;
    std::size_t count = all;
};
/// One row of a table.
constexpr TableRows RowOf(Table table, int row) {
    return {table, static_cast<std::size_t>(row), 1};
}

/// One row that differs.
struct Difference {
    std::size_t row;
    TableRow before;
    TableRow after;  ///< of the same table

    Table In() const { return static_cast<Table>(before.index()); }
    bool operator==(const Difference &) const = default;
};
using Differences = std::vector<Difference>;

/// How many rows a table has.
std::size_t RowTotal(Table table);
/// A copy of one row, which the table must have.
TableRow RowAt(const Campaign &campaign, Table table, std::size_t row);

/// What differs in the tables that can be edited, table by table and row by row.
Differences DifferencesOf(const Campaign &before, const Campaign &after);

enum class Direction { Forwards, Backwards };
/// Writes the rows after the differences (forwards) or before them (backwards) into campaign.
void Apply(const Differences &differences, Direction direction, Campaign &campaign);

/// Adds following to differences, so that both are one step. Removes a row that is back at its first value.
void Join(Differences &differences, Differences following);

/// A copy of some rows of a campaign.
class KeptRows {
  public:
    /// Leaves out rows outside their table. rows must not name a row twice.
    KeptRows(const Campaign &campaign, const std::vector<TableRows> &rows);

    /// The differences from the copy to now. Call it once.
    Differences DifferencesTo(const Campaign &now);

  private:
    struct Row {
        std::size_t row;
        TableRow value;
    };
    std::vector<Row> rows_;
};

}  // namespace vtr
