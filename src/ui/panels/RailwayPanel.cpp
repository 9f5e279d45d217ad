#include "RailwayPanel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "Arithmetic.h"
#include "EditCampaign.h"
#include "GamePosition.h"
#include "ItemNotes.h"
#include "MapRedraw.h"
#include "MapView.h"
#include "NumberField.h"
#include "QuietLine.h"

namespace vtr {

RailwayPanel::RailwayPanel(Session &session, QWidget *parent)
    : Panel(QStringLiteral("fra_railway"), QStringLiteral("Railway"), session, parent) {
    Build();
    Bind();
    Refresh();
}

std::string RailwayPanel::Note() const {
    return NoteOfRailwayLine(campaign_, Line());
}

void RailwayPanel::Build() {
    TitleRow().addWidget(MakeNote("lbl_rail_note", 1));
    line_ = AddSelector({"rail_linenum", "&Line:", "Railway line", "", railwayLineTotal - 1},
                        session_.selection.railwayLine, 0, 0);
    increment_ = new QCheckBox(QStringLiteral("Automatically Increment Line #?"), this);
    increment_->setObjectName(QStringLiteral("chk_rail_auto"));
    increment_->setToolTip(
        QStringLiteral("Go on to the next line after a Shift + right click has placed the end of this one"));
    Grid().addWidget(increment_, 0, 2, 1, 3);

    pixels_[X1] =
        AddField({"rail_x1", "X&1:", "Column of the line's start", "map pixels", mapWidth - 1}, 1, 0);
    metres_[X1] =
        AddField({"rail_xm1", "+ m:", "Start: metres from the tile's left edge", "m", tileMetres}, 1, 2);
    precise_[0] = AddButton(QStringLiteral("cmd_rail_precise1"), QStringLiteral("Precise 1..."),
                            QStringLiteral("Place the line's start exactly within its tile"), 1);
    pixels_[Y1] = AddField({"rail_y1", "Y1:", "Row of the line's start", "map pixels", mapHeight - 1}, 2, 0);
    metres_[Y1] =
        AddField({"rail_ym1", "+ m:", "Start: metres from the tile's top edge", "m", tileMetres}, 2, 2);
    pixels_[X2] = AddField({"rail_x2", "X&2:", "Column of the line's end", "map pixels", mapWidth - 1}, 3, 0);
    metres_[X2] =
        AddField({"rail_xm2", "+ m:", "End: metres from the tile's left edge", "m", tileMetres}, 3, 2);
    precise_[1] = AddButton(QStringLiteral("cmd_rail_precise2"), QStringLiteral("Precise 2..."),
                            QStringLiteral("Place the line's end exactly within its tile"), 3);
    pixels_[Y2] = AddField({"rail_y2", "Y2:", "Row of the line's end", "map pixels", mapHeight - 1}, 4, 0);
    metres_[Y2] =
        AddField({"rail_ym2", "+ m:", "End: metres from the tile's top edge", "m", tileMetres}, 4, 2);
    enable_ = AddButton(QStringLiteral("cmd_Enable"), QStringLiteral("Enable All"),
                        QStringLiteral("Count no line as disabled; cleared lines are not restored"), 4);
    // In a row of its own, so that nobody presses it by mistake.
    disable_ = AddButton(QStringLiteral("cmd_rail_disable"), QStringLiteral("Disable Lines"),
                         QStringLiteral("Clear this line and all lines after it"), 5);
    Grid().setRowStretch(6, 1);
}

QPushButton *RailwayPanel::AddButton(const QString &name, const QString &caption, const QString &toolTip,
                                     int row) {
    QPushButton *button = MakeButton(name, caption, toolTip);
    Grid().addWidget(button, row, 4);
    return button;
}

void RailwayPanel::Bind() {
    connect(line_, &NumberField::NumberChanged, this, &RailwayPanel::Changed);
    for (const RailwayCoordinate coordinate : {X1, X2, Y1, Y2}) {
        connect(pixels_[coordinate], &NumberField::NumberChanged, this, [this, coordinate](int pixel) {
            MoveLine(SetRailwayPixel, coordinate, pixel, pixels_[coordinate]);
            Q_EMIT Changed();
        });
        // The map does not show fine offsets.
        connect(metres_[coordinate], &NumberField::NumberChanged, this, [this, coordinate](int metres) {
            MoveLine(SetRailwayFineOffset, coordinate, metres, metres_[coordinate]);
        });
    }
    connect(precise_[0], &QPushButton::clicked, this, [this] { Q_EMIT PreciseRequested(1); });
    connect(precise_[1], &QPushButton::clicked, this, [this] { Q_EMIT PreciseRequested(2); });
    connect(disable_, &QPushButton::clicked, this, &RailwayPanel::DisableLines);
    connect(enable_, &QPushButton::clicked, this, &RailwayPanel::EnableAll);
}

void RailwayPanel::MoveLine(void (*set)(Campaign &campaign, int line, RailwayCoordinate coordinate,
                                        int number),
                            RailwayCoordinate coordinate, int number, const NumberField *field) {
    session_.Do(
        "Move Railway Line " + std::to_string(Line()), {RowOf(Table::RailwayLines, Line())},
        [&](Campaign &campaign) { set(campaign, Line(), coordinate, number); },
        field->objectName().toStdString());
}

void RailwayPanel::Refresh() {
    const auto index = static_cast<std::size_t>(Line());
    const RailwayLine &line = campaign_.RailwayTable[index];
    for (std::size_t coordinate = 0; coordinate < metres_.size(); ++coordinate)
        metres_[coordinate]->ShowRecordValue(
            RoundToInt32(campaign_.RailwayTable[index].fineOffsets[coordinate]));
    // A marker row leaves the field of its row as it was. In an all-zero record both rows are 1760, so the
    // field of the second end checks the first end for that.
    pixels_[X1]->ShowRecordValue(line.x1);
    if (!IsMarkerRow(line.y1))
        pixels_[Y1]->ShowRecordValue(line.y1);
    pixels_[X2]->ShowRecordValue(line.x2);
    if (line.y2 != 1759 && line.y1 != 1760)
        pixels_[Y2]->ShowRecordValue(line.y2);
}

void RailwayPanel::ShowMarkerRows() {
    const RailwayLine &line = campaign_.RailwayTable[static_cast<std::size_t>(Line())];
    pixels_[Y1]->ShowRecordValue(line.y1);
    pixels_[Y2]->ShowRecordValue(line.y2);
}

PositionFields RailwayPanel::Position(int end) const {
    const auto [x, y] = end == 1 ? std::pair(X1, Y1) : std::pair(X2, Y2);
    return {pixels_[x], pixels_[y], metres_[x], metres_[y]};
}

void RailwayPanel::PlaceEnd(int x, int y) {
    Position(2).MoveTo(x, y);
    if (increment_->isChecked())
        Select(Line() + 1);
}

void RailwayPanel::DisableLines() {
    const int first = Line();
    if (!AskYesNo(this, QStringLiteral("Disable all lines from %1 onwards?").arg(first)))
        return;
    session_.Do("Disable Lines from " + std::to_string(first),
                {{Table::RailwayLines, static_cast<std::size_t>(first)}, {Table::RailwayCounts}},
                [first](Campaign &campaign) { DisableRailwayFrom(campaign, first); });
    Refresh();
    // DisabledLinesText would take line 0 for "no line disabled".
    Q_EMIT DisabledLinesChanged(QStringLiteral("Lines %1+ Disabled").arg(first));
    Q_EMIT Changed();
}

void RailwayPanel::EnableAll() {
    session_.Do("Enable All Lines", {{Table::RailwayCounts}}, EnableRailway);
    Q_EMIT DisabledLinesChanged(QString::fromStdString(DisabledLinesText(0)));
}

}  // namespace vtr
