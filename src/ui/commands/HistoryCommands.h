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

    /// Shows the tables in the panels and on the map after anything may have changed in them; the selected
    /// item is brought into view.
    void ShowTables();

  private:
    Session &session_;
    MainWidgets &widgets_;
    std::function<void()> redraw_;
};

}  // namespace vtr
