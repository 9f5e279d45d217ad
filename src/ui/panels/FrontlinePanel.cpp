#include "FrontlinePanel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include "EditCampaign.h"
#include "ItemNotes.h"
#include "MapView.h"
#include "NumberField.h"
#include "QuietLine.h"

namespace vtr {

FrontlinePanel::FrontlinePanel(Session &session, QWidget *parent)
    : Panel(QStringLiteral("fra_frontline"), QStringLiteral("Frontline"), session, parent) {
    Build();
    Bind();
    Refresh();
}

void FrontlinePanel::Build() {
    slot_ = AddSelector({"frnt_num", "&Slot:", "Frontline slot", "", frontlineTotal - 1},
                        session_.selection.frontline, 0, 0, 2);
    point_ = AddSelector({"frnt_pointnum", "Poin&t:", "Point of the frontline", "", frontlinePointTotal - 1},
                         session_.selection.frontlinePoint, 1, 0, 2);
    x_ = AddField({"frnt_x", "&X:", "Frontline point column", "map pixels", mapWidth - 1}, 2, 0);
    y_ = AddField({"frnt_y", "&Y:", "Frontline point row", "map pixels", mapHeight - 1}, 2, 2);
    onMap_ = new QCheckBox(QStringLiteral("On Map?"), this);
    onMap_->setObjectName(QStringLiteral("chk_frnt_map"));
    onMap_->setToolTip(QStringLiteral("Display it on the briefing map?"));
    auto *last = new QHBoxLayout;
    last->addWidget(onMap_);
    last->addWidget(MakeNote("lbl_frnt_note", 2, QStringLiteral("Point 29 of")));
    Grid().addLayout(last, 3, 0, 1, 4);
    copy_ = MakeButton(QStringLiteral("cmd_frnt_copy"), QStringLiteral("Copy to All Slots"),
                       QStringLiteral("Copy all points of this slot into every slot"));
    Grid().addWidget(copy_, 4, 0, 1, 4);
    next_ = MakeButton(QStringLiteral("cmd_frnt_next"), QStringLiteral("Next Free Point"),
                       QStringLiteral("Select the first point of this slot that is not used yet"));
    Grid().addWidget(next_, 5, 0, 1, 4);
    Grid().setRowStretch(6, 1);
    // No higher than the railway frame beside it.
    QMargins margins = Grid().contentsMargins();
    margins.setBottom(1);
    Grid().setContentsMargins(margins);
}

void FrontlinePanel::Bind() {
    for (NumberField *selector : {slot_, point_})
        connect(selector, &NumberField::NumberChanged, this, &FrontlinePanel::Changed);
    const auto store = [this](NumberField *field, Axis axis) {
        connect(field, &NumberField::NumberChanged, this, [this, field, axis](int pixel) {
            session_.Do(
                "Move " + ShownPoint(), {ShownRow()},
                [&](Campaign &campaign) { SetFrontlinePixel(campaign, Slot(), Point(), axis, pixel); },
                field->objectName().toStdString());
            Q_EMIT Changed();
        });
    };
    store(x_, Axis::X);
    store(y_, Axis::Y);
    connect(onMap_, &QCheckBox::toggled, this, [this](bool onMap) {
        session_.Do((onMap ? "Show " : "Hide ") + ShownPoint(), {ShownRow()},
                    [&](Campaign &campaign) { SetFrontlinePointOnMap(campaign, Slot(), Point(), onMap); });
        Q_EMIT Changed();
    });
    connect(copy_, &QPushButton::clicked, this, &FrontlinePanel::CopyIntoAllSlots);
    connect(next_, &QPushButton::clicked, this, &FrontlinePanel::SelectFreePoint);
}

std::string FrontlinePanel::Note() const {
    return NoteOfFrontlinePoint(campaign_.FrontlineTable[static_cast<std::size_t>(Slot())], Point());
}

void FrontlinePanel::SelectFreePoint() {
    const auto free = FirstFreePoint(campaign_.FrontlineTable[static_cast<std::size_t>(Slot())]);
    if (free)
        point_->SetNumber(*free);
    else
        Q_EMIT StatusMessage(
            QStringLiteral("All %1 points of this slot are in use.").arg(frontlinePointTotal));
}

std::string FrontlinePanel::ShownPoint() const {
    return "Point " + std::to_string(Point()) + " of Frontline " + std::to_string(Slot());
}

TableRows FrontlinePanel::ShownRow() const {
    return RowOf(Table::FrontlinePoints, Slot() * static_cast<int>(frontlinePointTotal) + Point());
}

void FrontlinePanel::Refresh() {
    const QSignalBlocker blocker(onMap_);
    const FrontlinePoint &point =
        campaign_.FrontlineTable[static_cast<std::size_t>(Slot())].points[static_cast<std::size_t>(Point())];
    x_->ShowRecordValue(point.x);
    y_->ShowRecordValue(point.y);
    onMap_->setChecked(point.on_map == flagSet);
}

void FrontlinePanel::CopyIntoAllSlots() {
    if (!AskYesNo(this, QStringLiteral("Copy the current frontlines into all frontline slots?")))
        return;
    session_.Do("Copy Frontline " + std::to_string(Slot()) + " to All Slots", {{Table::FrontlinePoints}},
                [this](Campaign &campaign) { CopyFrontlineIntoAllSlots(campaign, Slot()); });
    Q_EMIT Changed();
}

}  // namespace vtr
