#pragma once

#include <QDropEvent>
#include <QString>

namespace vtr {

/// The path of the local file or folder that is dragged; empty when several or other things are.
QString DroppedPath(const QDropEvent &event);
/// Accepts the drop as a copy. After a move the file manager would delete the file.
void AcceptAsCopy(QDropEvent &event);

}  // namespace vtr
