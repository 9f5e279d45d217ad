#include "TerminationSignals.h"

namespace vtr {

int CatchTerminationSignals() {
    return -1;  // a window is asked to close, by the user and at the session's end
}

}  // namespace vtr
