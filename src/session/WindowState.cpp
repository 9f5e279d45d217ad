#include "WindowState.h"

namespace vtr {

WindowState WindowStateOf(const Session &session) {
    WindowState state{.projectEnabled = session.campaign.ProjectLoaded,
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

}  // namespace vtr
