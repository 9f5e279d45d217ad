#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <initializer_list>

namespace vtr {

QPushButton *MakeButton(const QString &name, const QString &caption);
/// The button cmd_cancel, which rejects dialog.
QPushButton *MakeCancelButton(QDialog &dialog, const QString &caption = QStringLiteral("&Cancel"));
/// Places the buttons side by side at the right.
QHBoxLayout *ButtonRow(std::initializer_list<QPushButton *> buttons);

/// The buttons cmd_OK and cmd_cancel, which accept and reject dialog.
QHBoxLayout *OkCancelRow(QDialog &dialog);

}  // namespace vtr
