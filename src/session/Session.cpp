#include "Session.h"

#include "Arithmetic.h"

namespace vtr {

void SwitchMode(Session &session, EditMode mode) {
    session.mode = mode;
    session.targetFrameEnabled = mode == EditMode::Target;
    if (mode != EditMode::Target)
        session.airfieldFrameEnabled = false;
}

MapDisplay DisplayOf(const Session &session) {
    const Selection &selection = session.selection;
    return {session.layers,
            session.mode == EditMode::Frontline,
            session.mode == EditMode::Railway,
            ToInt16(selection.frontline),
            ToInt16(selection.frontlinePoint),
            ToInt16(selection.railwayLine),
            ToInt16(selection.target)};
}

}  // namespace vtr
