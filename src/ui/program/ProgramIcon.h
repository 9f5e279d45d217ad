#pragma once

#include <QIcon>

namespace vtr {

/// The program's own icon, drawn for each size that a desktop asks for.
QIcon ProgramIcon();

}  // namespace vtr
