#pragma once

#include <QObject>
#include <functional>

#include "ItemTable.h"
#include "MainWidgets.h"

namespace vtr {

class frm_list;

/// "&List of Items...".
class ListCommands : public QObject {
    Q_OBJECT

  public:
    ListCommands(Session &session, MainWidgets &widgets, QMainWindow *window, std::function<void()> redraw);

    /// Shows in the list what the tables are now.
    void TablesChanged();

  private:
    void Open();
    /// Selects the item of that row on the map, with the item in view.
    void ShowItem(ItemKind kind, int row);
    void SaveAsCsv();

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> redraw_;
    frm_list *list_ = nullptr;  ///< made when it is first asked for
};

}  // namespace vtr
