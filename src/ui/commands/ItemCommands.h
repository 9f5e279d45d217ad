#pragma once

#include <QObject>
#include <functional>

#include "MainWidgets.h"

namespace vtr {

class frm_precise;

/// The buttons of the panels that open a dialog or work on all targets at once.
class ItemCommands : public QObject {
    Q_OBJECT

  public:
    ItemCommands(Session &session, MainWidgets &widgets, QMainWindow *window, std::function<void()> redraw);

  private:
    /// The fields of one position of the panels: its tile, and the metres within it.
    struct PositionFields {
        const char *x;
        const char *y;
        const char *xm;
        const char *ym;
    };

    void FindTarget();
    void ReorderAllTargets();
    void PositionPrecisely(const PositionFields &fields);
    void ViewTile();
    /// Shows the tile under the position that two fields hold; false, after a message, when it lies on none.
    bool ShowTileAt(const char *xField, const char *yField, frm_precise &dialog) const;

    Session &session_;
    MainWidgets &widgets_;
    QMainWindow *window_;
    std::function<void()> redraw_;
};

}  // namespace vtr
