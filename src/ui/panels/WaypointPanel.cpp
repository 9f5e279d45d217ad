#include "WaypointPanel.h"

#include <QGridLayout>

#include "GamePosition.h"
#include "ItemNotes.h"
#include "MapView.h"
#include "NumberField.h"
#include "QuietLine.h"

namespace vtr {

WaypointPanel::WaypointPanel(Kind kind, Session &session, QWidget *parent)
    : Panel(kind == Kind::Road ? QStringLiteral("fra_roadint") : QStringLiteral("fra_railint"),
            kind == Kind::Road ? QStringLiteral("Road Interdiction") : QStringLiteral("Rail Interdiction"),
            session, parent),
      selected_(kind == Kind::Road ? session.selection.road : session.selection.rail) {
    if (kind == Kind::Road) {
        paths_ = campaign_.RoadWaypointTable;
        Build("roi_num", "roi_wptnum", "roi_x", "roi_xm", "roi_y", "roi_ym", "lbl_roi_note");
    } else {
        paths_ = campaign_.RailWaypointTable;
        Build("rai_num", "rai_wptnum", "rai_x", "rai_xm", "rai_y", "rai_ym", "lbl_rai_note");
    }
    setToolTip(
        QStringLiteral("The game's interdiction paths are only shown: nothing entered here is stored"));
    Refresh();
}

void WaypointPanel::Build(const char *path, const char *waypoint, const char *x, const char *xMetres,
                          const char *y, const char *yMetres, const char *note) {
    const int lastPath = static_cast<int>(paths_.size()) - 1;
    AddSelector({path, "Path:", "Interdiction path", "", lastPath}, selected_.path, 0, 0, 2);
    AddSelector({waypoint, "Waypoint:", "Waypoint of the path", "", waypointTotal - 1}, selected_.waypoint, 1,
                0, 2);
    x_ = AddField({x, "X:", "Waypoint column", "map pixels", mapWidth - 1}, 2, 0);
    xMetres_ =
        AddField({xMetres, "+ m:", "Waypoint metres from the left edge of its tile", "m", tileMetres}, 2, 2);
    y_ = AddField({y, "Y:", "Waypoint row", "map pixels", mapHeight - 1}, 3, 0);
    yMetres_ =
        AddField({yMetres, "+ m:", "Waypoint metres from the top edge of its tile", "m", tileMetres}, 3, 2);
    for (NumberField *field : {x_, xMetres_, y_, yMetres_})
        field->setToolTip(field->toolTip() + QStringLiteral("; what is entered here is not stored"));
    Grid().addWidget(MakeNote(note, 3), 4, 0, 1, 4);
    Grid().setRowStretch(5, 1);
}

std::string WaypointPanel::Note() const {
    return NoteOfPath(paths_[static_cast<std::size_t>(selected_.path)]);
}

void WaypointPanel::Refresh() {
    const Waypoint &waypoint = paths_[static_cast<std::size_t>(selected_.path)]
                                   .waypoints[static_cast<std::size_t>(selected_.waypoint)];
    x_->ShowRecordValue(waypoint.x);
    y_->ShowRecordValue(waypoint.y);
    // Paths have no fine offsets.
    xMetres_->ShowRecordValue(0);
    yMetres_->ShowRecordValue(0);
}

}  // namespace vtr
