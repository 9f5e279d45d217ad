#include "frm_findtarget.h"

#include <QFormLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Buttons.h"
#include "GameText.h"
#include "ShowMessage.h"

namespace vtr {

frm_findtarget::frm_findtarget(std::span<const TargetRecord> targets, std::function<void(int)> found,
                               QWidget *parent)
    : QDialog(parent),
      targets_(targets),
      found_(std::move(found)),
      name_(new QLineEdit),
      number_(new QLabel) {
    setObjectName(QStringLiteral("frm_findtarget"));
    setWindowTitle(QStringLiteral("Find Target"));
    name_->setObjectName(QStringLiteral("txt_name"));
    name_->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    name_->setToolTip(
        QStringLiteral("The whole name of the target; capitals and small letters are the same"));
    number_->setObjectName(QStringLiteral("lbl_number"));
    number_->setAccessibleName(QStringLiteral("Target Number"));

    auto *const fields = new QFormLayout;
    fields->addRow(QStringLiteral("Target Name:"), name_);
    fields->addRow(QStringLiteral("Target Number:"), number_);

    QPushButton *const find = MakeButton(QStringLiteral("cmd_find"), QStringLiteral("&Find"));
    find->setEnabled(false);
    find->setDefault(true);
    connect(name_, &QLineEdit::textChanged, find,
            [find](const QString &text) { find->setEnabled(!text.isEmpty()); });
    connect(find, &QPushButton::clicked, this, &frm_findtarget::FindTarget);

    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addStretch();
    layout->addLayout(ButtonRow({find, MakeCancelButton(*this)}));
}

void frm_findtarget::FindTarget() {
    const QString wanted = name_->text().toLower();
    const auto match = std::ranges::find_if(targets_, [&wanted](const TargetRecord &target) {
        return ShownText(target.name).toLower() == wanted;
    });
    if (match == targets_.end()) {
        number_->clear();
        ShowMessage(this, QMessageBox::Information,
                    QStringLiteral("Could not find target named '") + name_->text() + QStringLiteral("'!"));
        return;
    }
    const auto index = static_cast<int>(match - targets_.begin());
    number_->setText(QString::number(index));
    found_(index);
    accept();
}

}  // namespace vtr
