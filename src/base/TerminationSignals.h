#pragma once

namespace vtr {

/// From now on SIGTERM, SIGHUP and SIGINT no longer end the process; a signal that was ignored stays so. Each
/// of them makes the descriptor that is given back readable. -1: this system has no such signals, or nothing
/// could be changed. Call it once.
int CatchTerminationSignals();

}  // namespace vtr
