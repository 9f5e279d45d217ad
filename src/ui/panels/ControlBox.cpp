#include "ControlBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "MapRedraw.h"
#include "NumberField.h"

namespace vtr {

ControlBox::ControlBox(Campaign &campaign, QWidget *parent)
    : Panel(QStringLiteral("fra_control"), QStringLiteral("View"), campaign, parent),
      disabledLines_(new QLabel(this)) {
    const QString all = QStringLiteral("ALL");
    connect(
        AddSelector({"viewfrontline", "View Frontline #:", "Frontline slot shown", "", frontlineTotal - 1},
                    QStringLiteral("View Frontline Number..."), 0),
        &NumberField::NumberChanged, this, &ControlBox::ViewFrontlineChanged);
    NumberField *railway =
        AddSelector({"view_railway", "View Railway #:", "Railway line shown", "", railwayLineTotal - 1},
                    QStringLiteral("View Railway Number..."), 1);
    NumberField *railPath =
        AddSelector({"view_railint", "View Rail Int #:", "Rail interdiction path shown", "", railPathTotal},
                    QStringLiteral("View Rail Intercept Path Number..."), 2);
    NumberField *roadPath =
        AddSelector({"view_roadint", "View Road Int #:", "Road interdiction path shown", "", roadPathTotal},
                    QStringLiteral("View Road Intercept Path Number..."), 3);
    for (NumberField *field : {railway, railPath, roadPath}) {
        field->SetZeroText(all);
        field->setToolTip(field->toolTip() + QStringLiteral("; 0 shows all"));
    }
    connect(railway, &NumberField::NumberChanged, this, &ControlBox::ViewRailwayChanged);
    connect(railPath, &NumberField::NumberChanged, this, &ControlBox::Changed);
    connect(roadPath, &NumberField::NumberChanged, this, &ControlBox::Changed);

    disabledLines_->setObjectName(QStringLiteral("lbl_disabled"));
    Grid().addWidget(disabledLines_, 4, 0, 1, 2);
    Grid().setRowStretch(5, 1);
    Refresh();
}

NumberField *ControlBox::AddSelector(const FieldText &text, const QString &toolTip, int row) {
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
