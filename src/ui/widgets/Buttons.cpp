#include "Buttons.h"

namespace vtr {

QPushButton *MakeButton(const QString &name, const QString &caption) {
    auto *const button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QPushButton *MakeCancelButton(QDialog &dialog, const QString &caption) {
    QPushButton *const cancel = MakeButton(QStringLiteral("cmd_cancel"), caption);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    return cancel;
}

QHBoxLayout *ButtonRow(std::initializer_list<QPushButton *> buttons) {
    auto *const row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : buttons)
        row->addWidget(button);
    return row;
}

QHBoxLayout *OkCancelRow(QDialog &dialog) {
    QPushButton *const ok = MakeButton(QStringLiteral("cmd_OK"), QStringLiteral("&OK"));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    return ButtonRow({ok, MakeCancelButton(dialog)});
}

}  // namespace vtr
