#include "ControlBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "MapRedraw.h"
#include "NumberField.h"

namespace vtr {

ControlBox::ControlBox(Campaign &campaign, QWidget *parent)
    : Panel(QStringLiteral("fra_control"), QStringLiteral("View"), campaign, parent),
      upd_viewfrontline(AddViewSelector(
          {"viewfrontline", "View Frontline #:", "Frontline slot shown", "", frontlineTotal - 1},
          QStringLiteral("View Frontline Number..."), 0)),
      upd_view_railway(
          AddViewSelector({"view_railway", "View Railway #:", "Railway line shown", "", railwayLineTotal - 1},
                          QStringLiteral("View Railway Number..."), 1)),
      upd_view_railint(AddViewSelector(
          {"view_railint", "View Rail Int #:", "Rail interdiction path shown", "", railPathTotal},
          QStringLiteral("View Rail Intercept Path Number..."), 2)),
      upd_view_roadint(AddViewSelector(
          {"view_roadint", "View Road Int #:", "Road interdiction path shown", "", roadPathTotal},
          QStringLiteral("View Road Intercept Path Number..."), 3)),
      disabledLines_(new QLabel(this)) {
    for (NumberField *field : {upd_view_railway, upd_view_railint, upd_view_roadint}) {
        field->SetZeroText(QStringLiteral("ALL"));
        field->setToolTip(field->toolTip() + QStringLiteral("; 0 shows all"));
    }
    connect(upd_viewfrontline, &NumberField::NumberChanged, this, &ControlBox::ViewFrontlineChanged);
    connect(upd_view_railway, &NumberField::NumberChanged, this, &ControlBox::ViewRailwayChanged);
    connect(upd_view_railint, &NumberField::NumberChanged, this, &ControlBox::Changed);
    connect(upd_view_roadint, &NumberField::NumberChanged, this, &ControlBox::Changed);

    disabledLines_->setObjectName(QStringLiteral("lbl_disabled"));
    Grid().addWidget(disabledLines_, 4, 0, 1, 2);
    Grid().setRowStretch(5, 1);
    Refresh();
}

NumberField *ControlBox::AddViewSelector(const FieldText &text, const QString &toolTip, int row) {
    NumberField *field = AddField(text, row, 0);
    field->findChild<QLineEdit *>()->setToolTip(toolTip);
    return field;
}

void ControlBox::Refresh() {
    ShowDisabledLines(QString::fromStdString(DisabledLinesText(campaign_.firstDisabledRailwayLine)));
}

void ControlBox::ShowDisabledLines(const QString &caption) {
    disabledLines_->setText(caption);
}

}  // namespace vtr
