#pragma once

#include <QString>

#include "Errors.h"

namespace vtr {

/// The one place that turns an error into words for the user: what the program was at, the file, the place in
/// it, what was expected and found, and consequence (what became of the user's data).
QString ErrorReport(const QString &operation, const Error &error, const QString &consequence);

}  // namespace vtr
