#include "HistoryCommands.h"

#include <utility>

#include "ControlBox.h"
#include "Panel.h"
#include "RailwayPanel.h"

namespace vtr {

HistoryCommands::HistoryCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                 std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), redraw_(std::move(redraw)) {
    connect(widgets.menu.mnu_e_undo, &QAction::triggered, this, [this] { Show(session_.Undo()); });
    connect(widgets.menu.mnu_e_redo, &QAction::triggered, this, [this] { Show(session_.Redo()); });
}

void HistoryCommands::Show(const Edit &edit) {
    std::array<bool, editModeTotal> changed{};
    for (const Difference &difference : edit.differences)
        changed[static_cast<std::size_t>(ModeOf(difference.In()))] = true;
    for (std::size_t mode = 0; mode < editModeTotal; ++mode)
        if (changed[mode])
            widgets_.modes[mode].frame->ShowSelection();
    if (changed[static_cast<std::size_t>(EditMode::Railway)]) {
        widgets_.fra_railway->ShowMarkerRows();
        widgets_.fra_control->Refresh();
    }
    widgets_.ShowState();
    widgets_.BringSelectionIntoView();
    redraw_();
}

void HistoryCommands::ShowTables() {
    widgets_.ShowSelections();
    widgets_.fra_railway->ShowMarkerRows();
    session_.airfieldFrameEnabled = session_.airfieldFrameEnabled && session_.targetFrameEnabled;
    widgets_.ShowState();
    redraw_();
}

}  // namespace vtr
