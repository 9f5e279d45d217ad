#pragma once

#include <QWidget>
#include <functional>

#include "Session.h"

namespace vtr {

class WorkKeeper;

/// Asks, for each unsaved work of the project that was just loaded, the newest first, whether it is to be
/// taken back, until one is; show shows the tables then. What makes no difference is removed, what cannot be
/// read is told.
void OfferUnsavedWork(Session &session, WorkKeeper &keeper, QWidget *window,
                      const std::function<void()> &show);

}  // namespace vtr
