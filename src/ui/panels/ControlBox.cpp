#include "ControlBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "Arithmetic.h"
#include "MapRedraw.h"
#include "NumberField.h"

namespace vtr {

ControlBox::ControlBox(Session &session, QWidget *parent)
    : Panel(QStringLiteral("fra_control"), QStringLiteral("View"), session, parent),
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
    const auto bind = [this](NumberField *field, std::int16_t &shown, auto changed) {
        connect(field, &NumberField::NumberChanged, this, [&shown](int number) { shown = ToInt16(number); });
        connect(field, &NumberField::NumberChanged, this, changed);
    };
    bind(upd_viewfrontline, session_.view.ViewFrontline, &ControlBox::ViewFrontlineChanged);
    bind(upd_view_railway, session_.layers.upd_view_railway, &ControlBox::ViewRailwayChanged);
    bind(upd_view_railint, session_.layers.upd_view_railint, &ControlBox::Changed);
    bind(upd_view_roadint, session_.layers.upd_view_roadint, &ControlBox::Changed);

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
    upd_viewfrontline->ShowRecordValue(session_.view.ViewFrontline);
    upd_view_railway->ShowRecordValue(session_.layers.upd_view_railway);
    upd_view_railint->ShowRecordValue(session_.layers.upd_view_railint);
    upd_view_roadint->ShowRecordValue(session_.layers.upd_view_roadint);
    ShowDisabledLines(QString::fromStdString(DisabledLinesText(campaign_.firstDisabledRailwayLine)));
}

void ControlBox::ShowDisabledLines(const QString &caption) {
    disabledLines_->setText(caption);
}

}  // namespace vtr
