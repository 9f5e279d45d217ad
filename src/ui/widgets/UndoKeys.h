#pragma once

#include <QKeyEvent>

namespace vtr {

// The keys of "&Undo" and "R&edo", which text fields claim for themselves.

inline bool IsUndoKey(const QKeyEvent &event) {
    return event.keyCombination() == (Qt::CTRL | Qt::Key_Z);
}

inline bool IsRedoKey(const QKeyEvent &event) {
    return event.keyCombination() == (Qt::CTRL | Qt::SHIFT | Qt::Key_Z) ||
           event.keyCombination() == (Qt::CTRL | Qt::Key_Y);
}

}  // namespace vtr
