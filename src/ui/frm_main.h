#pragma once

#include <QMainWindow>
#include <QTimer>

#include "EditModes.h"
#include "HistoryCommands.h"
#include "ItemCommands.h"
#include "ListCommands.h"
#include "MainWidgets.h"
#include "MapEditing.h"
#include "MapMoving.h"
#include "MapSigns.h"
#include "PreferencesCommands.h"
#include "ProjectCommands.h"
#include "ProjectFileCommands.h"
#include "SaveCommands.h"
#include "VersionCommands.h"
#include "WorkKeeper.h"

namespace vtr {

/// The main window: wires its parts to each other, to the campaign and to the dialogs.
class frm_main : public QMainWindow {
    Q_OBJECT

  public:
    explicit frm_main(Session &session);
    frm_main(const frm_main &) = delete;
    frm_main &operator=(const frm_main &) = delete;
    ~frm_main() override;

    /// Reads the preferences, shows the window and loads the project that commandLine names, if it names one.
    void Start(const QString &commandLine);

    /// Lets the user save the open campaign and waits until that is over.
    void SaveFilesAndWait() { saveCommands_.ShowAndWait(); }

    /// Keeps the unsaved edits, in case that the program ends.
    Kept KeepWork() { return workKeeper_.KeepAndWait(); }
    /// Closes the window whatever is open over it, without a question or a message.
    void CloseInSilence();

    /// Redraws the map, once, and shows it.
    void Redraw();

  protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

  private:
    void WireMenus();
    void WireMap();
    void WirePanels();
    /// Takes the frame that the window got, once it has one, out of the window's own size.
    void FitFrame();

    Session &session_;
    MainWidgets widgets_;
    EditModes editModes_;
    MapMoving mapMoving_;
    MapEditing mapEditing_;  ///< after the view has moved: it tells what is under the mouse then
    MapSigns mapSigns_;
    ItemCommands itemCommands_;
    HistoryCommands historyCommands_;
    ListCommands listCommands_;
    PreferencesCommands preferencesCommands_;
    SaveCommands saveCommands_;
    VersionCommands versionCommands_;
    WorkKeeper workKeeper_;
    ProjectCommands projectCommands_;
    ProjectFileCommands projectFileCommands_;
    QTimer tmr_TargetFlash_;
    bool framed_ = false;
    bool closesInSilence_ = false;
};

}  // namespace vtr
