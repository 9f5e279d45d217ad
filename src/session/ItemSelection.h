#pragma once

#include "ItemTable.h"
#include "Session.h"

namespace vtr {

/// Selects the item of a row of its table, in its mode and with its layer shown: of an airfield the first
/// target that stands for it, of a path its first waypoint. Returns false and changes nothing when no target
/// stands for the airfield.
bool SelectRow(Session &session, ItemKind kind, std::size_t row);

}  // namespace vtr
