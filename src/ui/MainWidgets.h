#pragma once

#include <QMainWindow>

#include "MainMenu.h"
#include "Session.h"

class QLabel;

namespace vtr {

class AirfieldPanel;
class ControlBox;
class FrontlinePanel;
class MapFrame;
class NumberField;
class Overview;
class Panel;
class QuietLine;
class RailwayPanel;
class StartLinks;
class StatusBar;
class TargetPanel;
class WaypointPanel;
class Workspace;

/// The parts of the main window, built and laid out; what they do together is wired elsewhere.
struct MainWidgets {
    MainWidgets(QMainWindow *window, Session &session);

    MainMenu menu;
    MapFrame *mapFrame;
    StartLinks *startLinks;
    Overview *Img_SmallMap;
    ControlBox *fra_control;
    QLabel *lbl_upside_down;  ///< shown while the map is one that was generated, with a link to mirror it
    QuietLine *lbl_under;     ///< what is under the pointer
    TargetPanel *fra_target;
    AirfieldPanel *fra_airfield;
    FrontlinePanel *fra_frontline;
    RailwayPanel *fra_railway;
    WaypointPanel *fra_roadint;
    WaypointPanel *fra_railint;
    StatusBar *sb_status;  ///< made last: Tab reaches it last
    Workspace *workspace;

    struct ModeControls {
        QAction *entry;
        QAction *layerEntry;
        Panel *frame;
        NumberField *viewSelector;  ///< nullptr for targets
        QString statusText;
    };
    std::array<ModeControls, editModeTotal> modes;  ///< in the order of EditMode

    /// Shows in every panel what the session selects.
    void ShowSelections() const;
    /// Enables and checks everything as the session has it. Call it after each change of what it goes by.
    void ShowState() const;
    /// Scrolls the selected item of the mode into view on the map, and the mode's frame in the window.
    void BringSelectionIntoView() const;
    /// Of that, what an edit, undo, redo or save changes.
    void ShowEdits() const;

  private:
    /// What stands beside the map: the overview, the view selectors and what is told of the map.
    QWidget *MakeColumn(QWidget *window) const;

    const Session &session_;
};

}  // namespace vtr
