#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "Campaign.h"

namespace vtr {

/// The kinds of items that a list shows, each in a table of its own.
enum class ItemKind : std::uint8_t { Target, Airfield, FrontlinePoint, RailwayLine, RoadPath, RailPath };
constexpr std::size_t itemKindTotal = 6;

/// A number, a text (UTF-8) or nothing.
using ItemCell = std::variant<std::monostate, int, double, std::string>;
/// The cell as it is written to a file and put on the clipboard.
std::string TextOf(const ItemCell &cell);

struct ItemColumn {
    std::string_view caption;
    ItemCell (*cell)(const Campaign &campaign, std::size_t row);
};

/// What a list shows of the items of one kind. The first columns are numbers that name the item.
struct ItemTable {
    std::size_t rowTotal;
    std::span<const ItemColumn> columns;
    /// False for a row without an item: a line that is not used, a point behind the end of its frontline.
    bool (*isUsed)(const Campaign &campaign, std::size_t row);
};

/// The table of the kind. The row of a frontline point is slot * frontlinePointTotal + point.
const ItemTable &ItemTableOf(ItemKind kind);

/// True when the target stands for that record of AirfieldTable.
inline bool IsAirfieldOf(const TargetRecord &target, std::size_t airfield) {
    return target.airfield_mark != 0 && target.airfield_ref == airfield;
}

}  // namespace vtr
