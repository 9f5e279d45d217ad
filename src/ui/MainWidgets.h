#pragma once

#include <QMainWindow>

#include "MainMenu.h"
#include "MapDisplay.h"
#include "Session.h"

namespace vtr {

class AirfieldPanel;
class ControlBox;
class FrontlinePanel;
class MapFrame;
class Overview;
class RailwayPanel;
class StatusBar;
class TargetPanel;
class WaypointPanel;

/// The parts of the main window, built and laid out; what they do together is wired elsewhere.
struct MainWidgets {
    MainWidgets(QMainWindow *window, Session &session);

    MainMenu menu;
    MapFrame *mapFrame;
    Overview *Img_SmallMap;
    ControlBox *fra_control;
    TargetPanel *fra_target;
    AirfieldPanel *fra_airfield;
    FrontlinePanel *fra_frontline;
    RailwayPanel *fra_railway;
    WaypointPanel *fra_roadint;
    WaypointPanel *fra_railint;
    StatusBar *sb_status;  ///< made last: Tab reaches it last

    /// What the controls say about the next redraw.
    MapDisplay Display() const;

  private:
    void LayOut(QWidget *centre) const;
};

}  // namespace vtr
