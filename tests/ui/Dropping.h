#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

namespace vtr {

/// Drags what data holds onto widget; true when it is taken, and then drops it there. The file manager
/// proposes a move and must be told that it was a copy.
inline bool DropOn(QWidget &widget, const QMimeData &data) {
    const QPoint at = widget.rect().center();
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(enter.proposedAction(), Qt::MoveAction);
    enter.ignore();
    QCoreApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(at, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    // The widget that took the drag takes its moves too unless it says no.
    move.setDropAction(enter.dropAction());
    move.accept();
    QCoreApplication::sendEvent(&widget, &move);
    EXPECT_EQ(move.dropAction(), Qt::CopyAction);
    EXPECT_TRUE(move.isAccepted());
    QDropEvent drop(at, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&widget, &drop);
    EXPECT_TRUE(!drop.isAccepted() || drop.dropAction() == Qt::CopyAction);
    return true;
}

}  // namespace vtr
