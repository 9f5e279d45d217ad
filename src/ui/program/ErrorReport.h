#pragma once

#include <QString>

#include "Errors.h"

namespace vtr {

/// The one place that turns an error into words for the user: what the program was at, what went wrong there,
/// the file and the place in it, and consequence: what became of the user's edits, if there were any, and
/// what to do now.
QString ErrorReport(const QString &operation, const Error &error, const QString &consequence);

}  // namespace vtr
