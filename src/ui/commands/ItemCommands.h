#pragma once

#include <QObject>
#include <functional>

#include "MainWidgets.h"

namespace vtr {

struct PositionFields;
class frm_precise;

/// The buttons of the panels that open a dialog or work on all targets at once.
class ItemCommands : public QObject {
    Q_OBJECT

  public:
    ItemCommands(Session &session, MainWidgets &widgets, QMainWindow *window, std::function<void()> redraw);

  private:
    void FindTarget();
    void ReorderAllTargets();
    void PositionPrecisely(const PositionFields &position);
    void ViewTile();
    /// Shows the tile under a position; false, after a message, when it lies on none.
    bool ShowTileAt(const PositionFields &position, frm_precise &dialog) const;

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> redraw_;
};

}  // namespace vtr
