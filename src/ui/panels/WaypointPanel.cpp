#include "WaypointPanel.h"

#include <QGridLayout>

#include "GamePosition.h"
#include "MapView.h"
#include "NumberField.h"

namespace vtr {

WaypointPanel::WaypointPanel(Kind kind, Campaign &campaign, QWidget *parent)
    : Panel(kind == Kind::Road ? QStringLiteral("fra_roadint") : QStringLiteral("fra_railint"),
            kind == Kind::Road ? QStringLiteral("Road Interdiction") : QStringLiteral("Rail Interdiction"),
            campaign, parent) {
    if (kind == Kind::Road) {
        paths_ = campaign.RoadWaypointTable;
        Build("roi_num", "roi_wptnum", "roi_x", "roi_xm", "roi_y", "roi_ym");
    } else {
        paths_ = campaign.RailWaypointTable;
        Build("rai_num", "rai_wptnum", "rai_x", "rai_xm", "rai_y", "rai_ym");
    }
    setToolTip(
        QStringLiteral("The game's interdiction paths are only shown: nothing entered here is stored"));
    for (NumberField *selector : {path_, waypoint_})
        connect(selector, &NumberField::NumberChanged, this, &WaypointPanel::Refresh);
    Refresh();
}

void WaypointPanel::Build(const char *path, const char *waypoint, const char *x, const char *xMetres,
                          const char *y, const char *yMetres) {
    const int lastPath = static_cast<int>(paths_.size()) - 1;
    path_ = AddSelector({path, "Path:", "Interdiction path", "", lastPath}, 0, 0, 2);
    waypoint_ = AddSelector({waypoint, "Waypoint:", "Waypoint of the path", "", waypointTotal - 1}, 1, 0, 2);
    x_ = AddField({x, "X:", "Waypoint column", "map pixels", mapWidth - 1}, 2, 0);
    xMetres_ =
        AddField({xMetres, "+ m:", "Waypoint metres from the left edge of its tile", "m", tileMetres}, 2, 2);
    y_ = AddField({y, "Y:", "Waypoint row", "map pixels", mapHeight - 1}, 3, 0);
    yMetres_ =
        AddField({yMetres, "+ m:", "Waypoint metres from the top edge of its tile", "m", tileMetres}, 3, 2);
    Grid().setRowStretch(4, 1);
}

void WaypointPanel::Refresh() {
    const Waypoint &waypoint = paths_[static_cast<std::size_t>(path_->value())]
                                   .waypoints[static_cast<std::size_t>(waypoint_->value())];
    x_->ShowRecordValue(waypoint.x);
    y_->ShowRecordValue(waypoint.y);
    // Paths have no fine offsets.
    xMetres_->ShowRecordValue(0);
    yMetres_->ShowRecordValue(0);
}

}  // namespace vtr
