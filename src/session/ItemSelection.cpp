#include "ItemSelection.h"

#include <algorithm>

namespace vtr {

bool SelectRow(Session &session, ItemKind kind, std::size_t row) {
    const int number = static_cast<int>(row);
    EditMode mode = EditMode::Target;
    Selection selected;
    switch (kind) {
        case ItemKind::Target:
            selected.target = number;
            break;
        case ItemKind::Airfield: {
            const auto &targets = session.campaign.TargetTable;
            const auto found = std::ranges::find_if(
                targets, [row](const TargetRecord &target) { return IsAirfieldOf(target, row); });
            if (found == targets.end())
                return false;
            selected.target = static_cast<int>(found - targets.begin());
            break;
        }
        case ItemKind::FrontlinePoint:
            mode = EditMode::Frontline;
            selected.frontline = number / static_cast<int>(frontlinePointTotal);
            selected.frontlinePoint = number % static_cast<int>(frontlinePointTotal);
            break;
        case ItemKind::RailwayLine:
            mode = EditMode::Railway;
            selected.railwayLine = number;
            break;
        case ItemKind::RoadPath:
            mode = EditMode::RoadInt;
            selected.road.path = number;
            break;
        case ItemKind::RailPath:
            mode = EditMode::RailInt;
            selected.rail.path = number;
            break;
    }
    session.history.EndMerging();
    SelectItem(session, mode, selected);
    return true;
}

}  // namespace vtr
