#pragma once

#include "TargetEditorModule.h"

namespace vtr {

/// What the tests' event boundary tells of when an error reaches it.
TargetEditorModule &BoundaryModule();

}  // namespace vtr
