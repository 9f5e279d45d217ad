#pragma once

#include <QCheckBox>
#include <QLabel>

#include "EditorWindow.h"
#include "frm_save.h"

namespace vtr {

/// "&Save Files..." on the main window.
class SaveCommand : public EditorWindow {
  protected:
    frm_save *SaveDialog() { return window().findChild<frm_save *>(); }
    void OpenSaveDialog() { Entry("mnu_p_export").trigger(); }
    void PressSave() { Press<QPushButton>(*SaveDialog(), QStringLiteral("cmd_save")); }
    QCheckBox &Box(int index) {
        return Find<QCheckBox>(*SaveDialog(), QStringLiteral("chk_save(%1)").arg(index));
    }
    void Tick(int index) {
        QTest::mouseClick(&Box(index), Qt::LeftButton, {}, QPoint(8, Box(index).height() / 2));
    }
    QString Note(int index) {
        return Find<QLabel>(*SaveDialog(), QStringLiteral("lbl_note(%1)").arg(index)).text();
    }
    QLabel &Line() { return Find<QLabel>(*SaveDialog(), QStringLiteral("lbl_message")); }
    bool DialogIsOpen() { return SaveDialog() != nullptr && SaveDialog()->isVisible(); }
};

}  // namespace vtr
