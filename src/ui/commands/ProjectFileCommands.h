#pragma once

#include <QObject>
#include <functional>

#include "Errors.h"
#include "MainWidgets.h"
#include "Picture.h"

namespace vtr {

/// The commands of the project menu that work on the files of the open project itself. What fails, also
/// for want of memory, is told in a warning, and the program goes on.
class ProjectFileCommands : public QObject {
    Q_OBJECT

  public:
    ProjectFileCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                        std::function<void()> redraw);

  private:
    void MirrorMap();
    void ChooseTilesFolder();
    void SaveCopy();
    void ShowMirrored(Picture picture);
    void Warn(const Error &error, const QString &consequence);
    /// Tells for a few seconds what was done.
    void TellDone(const QString &text);

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> redraw_;
};

}  // namespace vtr
