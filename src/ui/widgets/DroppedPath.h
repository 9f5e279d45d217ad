#pragma once

#include <QDropEvent>
#include <QString>

namespace vtr {

/// The path of the one file or folder of this system that is dragged; empty when it is anything else.
QString DroppedPath(const QDropEvent &event);
/// Takes the drop as a copy, whatever the file manager proposes: after a move it would delete the file.
void AcceptAsCopy(QDropEvent &event);

}  // namespace vtr
