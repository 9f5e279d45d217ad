#include "frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QEventLoop>
#include <QLineEdit>

#include "AirfieldPanel.h"
#include "ControlBox.h"
#include "DroppedPath.h"
#include "FrontlinePanel.h"
#include "MapFrame.h"
#include "MapRedraw.h"
#include "NumberField.h"
#include "Operation.h"
#include "Overview.h"
#include "Paths.h"
#include "ProgramVersion.h"
#include "RailwayPanel.h"
#include "ShowMessage.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"
#include "frm_about.h"
#include "frm_tutorial.h"

namespace vtr {

namespace {

constexpr QSize outerSize(888, 742);

/// The path of the one project file that is being dropped; empty when it is anything else.
QString ProjectFileIn(const QDropEvent &event) {
    const QString path = DroppedPath(event);
    return path.endsWith(QStringLiteral(".prj"), Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

frm_main::frm_main(Session &session)
    : session_(session),
      widgets_(this, session),
      editModes_(session, widgets_),
      mapMoving_(session, widgets_, [this] { Redraw(); }),
      mapEditing_(session, widgets_),
      mapSigns_(session, widgets_),
      itemCommands_(session, widgets_, this, [this] { Redraw(); }),
      historyCommands_(session, widgets_, this, [this] { Redraw(); }),
      listCommands_(session, widgets_, this, [this] { Redraw(); }),
      preferencesCommands_(session, widgets_, this),
      saveCommands_(session, widgets_, this),
      versionCommands_(session, widgets_, this, [this] { historyCommands_.ShowTables(); }),
      workKeeper_(session),
      projectCommands_(session, widgets_, saveCommands_, workKeeper_, this, [this] { Redraw(); }),
      projectFileCommands_(session, widgets_, this, [this] { Redraw(); }),
      tmr_TargetFlash_(this) {
    setObjectName(QStringLiteral("frm_main"));
    setWindowTitle(programTitle);
    resize(outerSize);
    // A dropped project file is for the window, not for the text that it happens to fall on.
    setAcceptDrops(true);
    for (QLineEdit *edit : findChildren<QLineEdit *>())
        edit->setAcceptDrops(false);
    WireMenus();
    WireMap();
    WirePanels();
    session.tablesChanged = [this] {
        widgets_.ShowEdits();
        widgets_.fra_target->TargetsChanged();
        saveCommands_.EditsChanged();
        workKeeper_.TablesChanged();
        listCommands_.TablesChanged();
    };
    connect(&workKeeper_, &WorkKeeper::CannotKeep, this,
            [this](const QString &message) { widgets_.sb_status->showMessage(message, 20000); });
    // What is typed in a field after another one was entered is another edit.
    connect(qApp, &QApplication::focusChanged, this, [&session] { session.history.EndMerging(); });
}

frm_main::~frm_main() {
    session_.tablesChanged = [] {};
}

void frm_main::Start(const QString &commandLine) {
    preferencesCommands_.Read();
    show();
    FitFrame();
    // On the screen before anything that takes time.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    preferencesCommands_.TellBadLines();
    if (commandLine.isEmpty())
        return;
    QString path = commandLine;
    if (path.startsWith(QLatin1Char('"'))) {
        path.remove(0, 1);
        path.chop(1);
    }
    projectCommands_.Load(path.isEmpty() ? std::string()
                                         : CleanAbsolutePath(QDir::toNativeSeparators(path).toStdString()));
}

void frm_main::Redraw() {
    const Operation drawing(session_.operation, tr("Drawing the map"));
    MapSurface &map = *widgets_.mapFrame->Img_Map;
    const auto disabledLines = vtr::Redraw(map.Surface(), session_.map, session_.campaign,
                                           session_.preferences, DisplayOf(session_), session_.view);
    if (disabledLines)
        widgets_.fra_control->ShowDisabledLines(QString::fromStdString(*disabledLines));
    map.update();
    widgets_.mapFrame->MapDrawn();
    mapSigns_.MapDrawn();
}

void frm_main::WireMenus() {
    const MainMenu &menu = widgets_.menu;
    connect(menu.mnu_p_exit, &QAction::triggered, this, &QWidget::close);
    for (std::size_t mode = 0; mode < editModeTotal; ++mode)
        connect(widgets_.modes[mode].layerEntry, &QAction::triggered, this, [this, mode](bool shown) {
            session_.layers.*layersOfModes[mode] = shown;
            widgets_.ShowState();
            Redraw();
        });
    connect(menu.mnu_h_tutorial, &QAction::triggered, this, [this] { frm_tutorial(this).exec(); });
    const auto showAbout = [this] { frm_about(this).exec(); };
    connect(menu.mnu_h_about, &QAction::triggered, this, showAbout);
    connect(widgets_.sb_status, &StatusBar::VersionDoubleClicked, this, showAbout);
    connect(widgets_.sb_status->curredit, &QToolButton::clicked, &editModes_, &EditModes::SwitchToNext);
}

void frm_main::WireMap() {
    connect(widgets_.mapFrame, &MapFrame::AreaChanged, this,
            [this] { widgets_.Img_SmallMap->ShowArea(session_.view.shp_area); });
    connect(widgets_.Img_SmallMap, &Overview::Clicked, this, [this] {
        if (session_.campaign.ProjectLoaded)
            Redraw();
    });
    tmr_TargetFlash_.setObjectName(QStringLiteral("tmr_TargetFlash"));
    tmr_TargetFlash_.setInterval(750);
    connect(&tmr_TargetFlash_, &QTimer::timeout, this, [this] {
        if (session_.campaign.ProjectLoaded && session_.layers.mnu_v_targets &&
            session_.preferences.FlashTarget != 0)
            Redraw();
    });
    tmr_TargetFlash_.start();
}

void frm_main::WirePanels() {
    for (Panel *panel :
         std::initializer_list<Panel *>{widgets_.fra_target, widgets_.fra_airfield, widgets_.fra_frontline,
                                        widgets_.fra_railway, widgets_.fra_roadint, widgets_.fra_railint})
        connect(panel, &Panel::Changed, this, &frm_main::Redraw);
    connect(widgets_.fra_target, &TargetPanel::StatusMessage, widgets_.sb_status, &StatusBar::ShowObjection);
    connect(widgets_.fra_frontline, &FrontlinePanel::StatusMessage, widgets_.sb_status,
            &StatusBar::ShowObjection);
    for (const NumberField *field : findChildren<NumberField *>())
        connect(field, &NumberField::Refused, widgets_.sb_status, &StatusBar::ShowObjection);
    connect(widgets_.fra_target, &TargetPanel::AirfieldShown, this, [this](std::optional<int> airfield) {
        widgets_.fra_airfield->ShowAirfield(airfield);
        widgets_.ShowState();
    });
    ControlBox *control = widgets_.fra_control;
    connect(control, &ControlBox::Changed, this, &frm_main::Redraw);
    connect(control, &ControlBox::ViewFrontlineChanged, this, &frm_main::Redraw);
    connect(control, &ControlBox::ViewRailwayChanged, this, [this](int line) {
        if (session_.selection.railwayLine == line)
            Redraw();
        else
            widgets_.fra_railway->Select(line);  // its own change redraws
    });
    connect(widgets_.fra_railway, &RailwayPanel::DisabledLinesChanged, control,
            &ControlBox::ShowDisabledLines);
}

void frm_main::FitFrame() {
    if (framed_ || frameGeometry().size() == size() || isMaximized())
        return;
    framed_ = true;
    resize(outerSize - (frameGeometry().size() - size()));
}

void frm_main::moveEvent(QMoveEvent *event) {
    QMainWindow::moveEvent(event);
    // A window manager moves the window into the frame that it puts around it.
    FitFrame();
}

void frm_main::CloseInSilence() {
    closesInSilence_ = true;
    close();
}

void frm_main::closeEvent(QCloseEvent *event) {
    if (KeepWork() == Kept::Failed && !closesInSilence_)
        ShowMessage(this, QMessageBox::Warning,
                    workKeeper_.LossReport(tr("The editor closes now. The edits that you have not saved are "
                                              "lost; the project's files are as you last saved them. Put "
                                              "right what is said above before you go on editing.")));
    preferencesCommands_.Write(!closesInSilence_);
    event->accept();
}

void frm_main::dragEnterEvent(QDragEnterEvent *event) {
    // A dialog over the window comes first.
    if (!ProjectFileIn(*event).isEmpty() && QApplication::activeModalWidget() == nullptr)
        AcceptAsCopy(*event);
}

void frm_main::dropEvent(QDropEvent *event) {
    const QString path = ProjectFileIn(*event);
    if (path.isEmpty())
        return;
    AcceptAsCopy(*event);
    // The file manager waits for the drop to end: what the user is asked comes after it.
    QMetaObject::invokeMethod(
        this, [this, path] { projectCommands_.LoadDropped(path); }, Qt::QueuedConnection);
}

}  // namespace vtr
