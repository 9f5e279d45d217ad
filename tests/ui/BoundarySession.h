#pragma once

#include "Session.h"

namespace vtr {

/// What the tests' event boundary tells of when an error reaches it.
Session &BoundarySession();

}  // namespace vtr
