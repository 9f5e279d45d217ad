#pragma once

#include <QObject>
#include <functional>

#include "MainWidgets.h"

namespace vtr {

/// "&Undo" and "R&edo".
class HistoryCommands : public QObject {
    Q_OBJECT

  public:
    HistoryCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                    std::function<void()> redraw);

    /// Shows all tables anew in the panels and on the map.
    void ShowTables();

  private:
    /// Shows the tables that edit changed, with its item in view.
    void Show(const Edit &edit);

    Session &session_;
    MainWidgets &widgets_;
    std::function<void()> redraw_;
};

}  // namespace vtr
