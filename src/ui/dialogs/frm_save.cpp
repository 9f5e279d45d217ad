#include "frm_save.h"

#include <QFrame>
#include <QVBoxLayout>
#include <utility>

#include "Buttons.h"

namespace vtr {

frm_save::frm_save(Save save, QWidget *parent) : QDialog(parent), save_(std::move(save)) {
    setObjectName(QStringLiteral("frm_save"));
    setWindowTitle(QStringLiteral("Save Files"));
    auto *const layout = new QVBoxLayout(this);
    for (std::size_t index = 0; index < saveBoxTotal; ++index) {
        const std::string_view caption = saveBoxCaptions[index];
        if (caption.empty())
            continue;
        auto *const check = new QCheckBox(QString::fromUtf8(caption));
        check->setObjectName(QStringLiteral("chk_save(%1)").arg(index));
        check->setToolTip(index < firstUnwrittenBox
                              ? QStringLiteral("Write this file where the project was loaded from")
                              : QStringLiteral("The editor shows this file but has nothing to write to it"));
        boxes_[index] = check;
        layout->addWidget(check);
    }
    auto *const line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line);

    auto *const all = new QCheckBox(QStringLiteral("SAVE ALL"));
    all->setObjectName(QStringLiteral("chk_saveall"));
    all->setToolTip(QStringLiteral("Tick every file"));
    layout->addWidget(all);
    connect(all, &QCheckBox::clicked, this, [this] {
        for (QCheckBox *check : boxes_)
            if (check != nullptr)
                check->setChecked(true);
    });

    QPushButton *const saveButton = MakeButton(QStringLiteral("cmd_save"), QStringLiteral("&Save"));
    saveButton->setDefault(true);
    connect(saveButton, &QPushButton::clicked, this, &frm_save::SaveTicked);
    QPushButton *const closeButton = MakeButton(QStringLiteral("cmd_close"), QStringLiteral("&Cancel"));
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
    layout->addSpacing(8);
    layout->addLayout(ButtonRow({saveButton, closeButton}));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frm_save::SaveTicked() {
    SaveBoxes ticked{};
    for (std::size_t index = 0; index < ticked.size(); ++index)
        ticked[index] = boxes_[index] != nullptr && boxes_[index]->isChecked();
    if (save_(ticked))
        accept();
}

}  // namespace vtr
