#pragma once

#include <QObject>
#include <functional>

#include "MainWidgets.h"

namespace vtr {

/// "&Earlier Versions...".
class VersionCommands : public QObject {
    Q_OBJECT

  public:
    VersionCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                    std::function<void()> showTables);

  private:
    void Show();

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> showTables_;  ///< in the panels and on the map
};

}  // namespace vtr
