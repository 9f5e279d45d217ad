#include "frm_about.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include "Buttons.h"
#include "ProgramIcon.h"
#include "ProgramVersion.h"
#include "ShowMessage.h"
#include "SystemInformation.h"

namespace vtr {

namespace {

QLabel *MakeLabel(const QString &name, const QString &text) {
    auto *const label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}  // namespace

frm_about::frm_about(QWidget *parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frm_about"));
    setWindowTitle(QStringLiteral("About ") + programTitle);

    QLabel *const title = MakeLabel(QStringLiteral("lblTitle"), programTitle);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    title->setFont(large);
    QLabel *const version =
        MakeLabel(QStringLiteral("lblVersion"), QStringLiteral("Version ") + FullVersionText());
    QLabel *const description =
        MakeLabel(QStringLiteral("lblDescription"),
                  QStringLiteral("Made by players of Veltraine, for everybody who builds campaigns for it."));
    QLabel *const disclaimer = MakeLabel(
        QStringLiteral("lblDisclaimer"),
        QStringLiteral("Warning: the publisher of Veltraine does not support the editing of its files.\n"
                       "Please do not contact the publisher about problems with edited files."));

    auto *const icon = new QLabel;
    icon->setObjectName(QStringLiteral("picIcon"));
    icon->setAccessibleName(QStringLiteral("Program icon"));
    icon->setPixmap(ProgramIcon().pixmap(64, 64));

    auto *const texts = new QVBoxLayout;
    texts->addWidget(title);
    texts->addWidget(version);
    texts->addSpacing(8);
    texts->addWidget(description);
    auto *const top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(texts, 1);

    auto *const line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    QPushButton *const close = MakeButton(QStringLiteral("cmdOK"), QStringLiteral("OK"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    QPushButton *const information =
        MakeButton(QStringLiteral("cmdSysInfo"), QStringLiteral("&System Info..."));
    connect(information, &QPushButton::clicked, this, [this] {
        if (!StartSystemInformation(SystemRegistryText))
            ShowMessage(this, QMessageBox::NoIcon,
                        QStringLiteral("System Information Is Unavailable At This Time"));
    });

    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(line);
    layout->addWidget(disclaimer);
    layout->addSpacing(8);
    layout->addLayout(ButtonRow({close, information}));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace vtr
