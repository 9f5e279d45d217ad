#include "HistoryCommands.h"

#include <utility>

#include "ControlBox.h"
#include "MapFrame.h"

namespace vtr {

HistoryCommands::HistoryCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                 std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), redraw_(std::move(redraw)) {
    connect(widgets.menu.mnu_e_undo, &QAction::triggered, this, [this] {
        session_.Undo();
        ShowTables();
    });
    connect(widgets.menu.mnu_e_redo, &QAction::triggered, this, [this] {
        session_.Redo();
        ShowTables();
    });
}

void HistoryCommands::ShowTables() {
    widgets_.ShowSelections();
    widgets_.fra_control->Refresh();
    widgets_.ShowState();
    const MapPixel selected = SelectedPixel(session_);
    widgets_.mapFrame->BringIntoView(selected.x, selected.y);
    redraw_();
}

}  // namespace vtr
