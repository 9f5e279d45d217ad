#include "Panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleOptionGroupBox>

#include "Arithmetic.h"
#include "NumberField.h"
#include "ProgramVersion.h"
#include "QuietLine.h"

namespace vtr {

Panel::Panel(const QString &name, const QString &title, Session &session, QWidget *parent)
    : QGroupBox(title, parent), session_(session), campaign_(session.campaign), grid_(new QGridLayout(this)) {
    setObjectName(name);
    // Nothing to edit yet. Disabling the panel now is cheaper than with children in it.
    setEnabled(false);
    grid_->setContentsMargins(6, 3, 6, 5);
    grid_->setHorizontalSpacing(4);
    grid_->setVerticalSpacing(3);
}

void Panel::ShowSelection() {
    for (const auto &[field, selected] : selectors_)
        field->ShowRecordValue(*selected);
    Refresh();
    ShowNote();
    Q_EMIT ItemShown();
}

void Panel::ShowNote() {
    if (note_ != nullptr)
        note_->SetText(campaign_.ProjectLoaded ? QString::fromStdString(Note()) : QString());
}

QHBoxLayout &Panel::TitleRow() {
    if (titleRow_ == nullptr) {
        titleRow_ = new QWidget(this);
        auto *row = new QHBoxLayout(titleRow_);
        row->setContentsMargins(0, 0, Grid().contentsMargins().right(), 0);
    }
    return static_cast<QHBoxLayout &>(*titleRow_->layout());
}

QuietLine *Panel::MakeNote(const char *name, int lines, const QString &widest) {
    note_ = new QuietLine(QLatin1String(name), lines, widest, this);
    return note_;
}

void Panel::resizeEvent(QResizeEvent *event) {
    QGroupBox::resizeEvent(event);
    if (titleRow_ == nullptr)
        return;
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QRect title = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
    const int gap = fontMetrics().height();
    titleRow_->setGeometry(title.right() + gap, title.top(), width() - title.right() - gap, title.height());
}

NumberField *Panel::AddField(const FieldText &text, int row, int column, int columns) {
    auto *label = new QLabel(QString::fromUtf8(text.caption), this);
    auto *field = new NumberField(QString::fromUtf8(text.name), text.maximum, this);
    const QString meaning = QString::fromUtf8(text.meaning);
    const QString unit = *text.unit == '\0' ? QString() : QLatin1Char(' ') + QString::fromUtf8(text.unit);
    field->setAccessibleName(meaning);
    field->setToolTip(QStringLiteral("%1, 0 to %2%3").arg(meaning).arg(text.maximum).arg(unit));
    label->setBuddy(field);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid_->addWidget(label, row, column, 1, columns);
    grid_->addWidget(field, row, column + columns, 1, columns);
    return field;
}

NumberField *Panel::AddSelector(const FieldText &text, int &selected, int row, int column, int columns) {
    NumberField *field = AddField(text, row, column, columns);
    connect(field, &NumberField::NumberChanged, this, [this, &selected](int item) {
        selected = item;
        session_.history.EndMerging();
        Refresh();
        ShowNote();
        Q_EMIT ItemShown();
    });
    selectors_.emplace_back(field, &selected);
    return field;
}

QPushButton *Panel::MakeButton(const QString &name, const QString &caption, const QString &toolTip) {
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

bool AskYesNo(QWidget *parent, const QString &question) {
    return QMessageBox::question(parent, programTitle, question, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace vtr
