#include "frm_findtarget.h"

#include <QAbstractItemView>
#include <QFormLayout>
#include <QHash>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Buttons.h"
#include "GameText.h"
#include "ShowMessage.h"
#include "Text.h"

namespace vtr {

namespace {

constexpr int nameRole = Qt::UserRole;
constexpr int numberRole = Qt::UserRole + 1;

/// The targets in the order of their names. A name that several have is shown with their numbers.
QStandardItemModel *ModelOfNames(std::span<const TargetRecord> targets, QObject *parent) {
    QHash<QString, int> shared;
    for (const TargetRecord &target : targets)
        ++shared[ShownText(target.name).toLower()];
    auto *const model = new QStandardItemModel(parent);
    for (std::size_t number = 0; number < targets.size(); ++number) {
        const QString name = ShownText(targets[number].name);
        const QString shown = ShownText(Shortened(targets[number].name));
        auto *const item = new QStandardItem(
            shared[name.toLower()] > 1 ? QStringLiteral("%1 (target %2)").arg(shown).arg(number) : shown);
        item->setData(name, nameRole);
        item->setData(static_cast<int>(number), numberRole);
        model->appendRow(item);
    }
    model->setSortRole(nameRole);
    model->sort(0);
    return model;
}

}  // namespace

frm_findtarget::frm_findtarget(std::span<const TargetRecord> targets, std::function<void(int)> found,
                               QWidget *parent)
    : QDialog(parent),
      targets_(targets),
      found_(std::move(found)),
      name_(new QLineEdit),
      number_(new QLabel),
      find_(MakeButton(QStringLiteral("cmd_find"), QStringLiteral("&Find"))) {
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

    find_->setEnabled(false);
    find_->setDefault(true);
    connect(name_, &QLineEdit::textChanged, find_,
            [this](const QString &text) { find_->setEnabled(!text.isEmpty()); });
    connect(find_, &QPushButton::clicked, this, &frm_findtarget::FindTarget);
    connect(name_, &QLineEdit::textEdited, this, &frm_findtarget::OfferNames);

    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addStretch();
    layout->addLayout(ButtonRow({find_, MakeCancelButton(*this)}));
}

void frm_findtarget::MakeNames() {
    names_ = new QCompleter(ModelOfNames(targets_, this), this);
    names_->setCompletionRole(nameRole);
    names_->setCaseSensitivity(Qt::CaseInsensitive);
    names_->setFilterMode(Qt::MatchContains);
    names_->setMaxVisibleItems(12);
    // Given to the field itself, it would write each name that is gone through into it.
    names_->setWidget(name_);
    names_->popup()->setObjectName(QStringLiteral("lst_names"));
    names_->popup()->setAccessibleName(tr("Targets whose name contains the text"));
    names_->popup()->installEventFilter(this);
    connect(names_, qOverload<const QModelIndex &>(&QCompleter::activated), this,
            [this](const QModelIndex &name) { Select(name.data(numberRole).toInt()); });
}

void frm_findtarget::OfferNames(const QString &text) {
    if (names_ == nullptr)
        MakeNames();
    names_->setCompletionPrefix(text);
    if (text.isEmpty())
        names_->popup()->hide();
    else
        names_->complete();
}

bool frm_findtarget::eventFilter(QObject *watched, QEvent *event) {
    if (names_ == nullptr || watched != names_->popup())
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress)
        return PressBehindOffer(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    // Enter chooses the name that is marked and does nothing else; without one it finds, as without a list.
    const QModelIndex marked = names_->popup()->currentIndex();
    names_->popup()->hide();
    if (marked.isValid())
        Select(marked.data(numberRole).toInt());
    else
        find_->click();
    return true;
}

bool frm_findtarget::PressBehindOffer(QPoint at) {
    auto *const button = qobject_cast<QPushButton *>(childAt(mapFromGlobal(at)));
    if (button == nullptr || names_->popup()->frameGeometry().contains(at))
        return false;
    names_->popup()->hide();
    button->click();
    return true;
}

void frm_findtarget::FindTarget() {
    if (names_ != nullptr)
        names_->popup()->hide();
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
    Select(static_cast<int>(match - targets_.begin()));
}

void frm_findtarget::Select(int target) {
    number_->setText(QString::number(target));
    found_(target);
    accept();
}

}  // namespace vtr
