#pragma once

#include <QMessageBox>
#include <QString>

#include "ProgramVersion.h"

namespace vtr {

/// Shows text as plain text in a box with an OK button and waits for the user.
void ShowMessage(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                 const QString &title = programTitle);

}  // namespace vtr
