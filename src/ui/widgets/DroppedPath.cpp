#include "DroppedPath.h"

#include <QMimeData>
#include <QUrl>

namespace vtr {

QString DroppedPath(const QDropEvent &event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

void AcceptAsCopy(QDropEvent &event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

}  // namespace vtr
