#include "WindowState.h"

namespace vtr {

namespace {

std::optional<std::string> NameOf(const Edit *edit) {
    return edit == nullptr ? std::nullopt : std::optional(edit->name);
}

}  // namespace

WindowState WindowStateOf(const Session &session) {
    WindowState state{.projectEnabled = session.campaign.ProjectLoaded,
                      .goToEnabled = session.campaign.ProjectLoaded && session.view.MapZoom > 1,
                      .airfieldFrameEnabled = session.airfieldFrameEnabled,
                      .modes = {},
                      .zoomMenu = session.view.zoomMenu};
    for (std::size_t i = 0; i < editModeTotal; ++i) {
        const auto mode = static_cast<EditMode>(i);
        const bool current = mode == session.mode;
        state.modes[i] = {.entryChecked = current,
                          .frameEnabled = mode == EditMode::Target ? session.targetFrameEnabled : current,
                          .viewSelectorEnabled = !current,
                          .layerChecked = session.layers.*layersOfModes[i]};
    }
    return state;
}

EditState EditStateOf(const Session &session) {
    return {NameOf(session.history.ToUndo()), NameOf(session.history.ToRedo()), session.EditedFiles()};
}

}  // namespace vtr
