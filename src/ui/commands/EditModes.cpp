#include "EditModes.h"

#include "Panel.h"
#include "Workspace.h"

namespace vtr {

EditModes::EditModes(Session &session, MainWidgets &widgets) : session_(session), widgets_(widgets) {
    for (std::size_t mode = 0; mode < editModeTotal; ++mode)
        connect(widgets.modes[mode].entry, &QAction::triggered, this, [this, mode] { SwitchTo(mode); });
}

void EditModes::SwitchToNext() {
    SwitchTo((static_cast<std::size_t>(session_.mode) + 1) % editModeTotal);
}

void EditModes::SwitchTo(std::size_t mode) {
    session_.history.EndMerging();
    SwitchMode(session_, static_cast<EditMode>(mode));
    widgets_.ShowState();
    widgets_.workspace->BringIntoView(widgets_.modes[mode].frame);
    if (!(session_.layers.*layersOfModes[mode]))
        widgets_.modes[mode].layerEntry->trigger();
}

}  // namespace vtr
