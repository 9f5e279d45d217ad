#include "MainWidgets.h"

#include <QLabel>
#include <QVBoxLayout>

#include "AirfieldPanel.h"
#include "ControlBox.h"
#include "EditedFilesLabel.h"
#include "FrameFlow.h"
#include "FrontlinePanel.h"
#include "MapFrame.h"
#include "NumberField.h"
#include "Overview.h"
#include "QuietLine.h"
#include "RailwayPanel.h"
#include "StartLinks.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"
#include "WindowState.h"
#include "Workspace.h"

namespace vtr {

namespace {

void ShowEdit(QAction &entry, const QString &caption, const std::optional<std::string> &edit) {
    entry.setText(edit ? caption + QLatin1Char(' ') + QString::fromStdString(*edit) : caption);
    entry.setEnabled(edit.has_value());
}

}  // namespace

MainWidgets::MainWidgets(QMainWindow *window, Session &session)
    : menu(window->menuBar()),
      mapFrame(new MapFrame(session.view, window)),
      startLinks(new StartLinks(menu, mapFrame)),
      Img_SmallMap(new Overview(window)),
      fra_control(new ControlBox(session, window)),
      lbl_upside_down(new QLabel(window)),
      lbl_under(new QuietLine(QStringLiteral("lbl_under"), 3, QString(), window)),
      fra_target(new TargetPanel(session, window)),
      fra_airfield(new AirfieldPanel(session, window)),
      fra_frontline(new FrontlinePanel(session, window)),
      fra_railway(new RailwayPanel(session, window)),
      fra_roadint(new WaypointPanel(WaypointPanel::Kind::Road, session, window)),
      fra_railint(new WaypointPanel(WaypointPanel::Kind::Rail, session, window)),
      sb_status(new StatusBar(window)),
      modes{{{menu.mnu_e_target, menu.mnu_v_targets, fra_target, nullptr, QStringLiteral("  TARGETS  ")},
             {menu.mnu_e_frontline, menu.mnu_v_frontlines, fra_frontline, fra_control->upd_viewfrontline,
              QStringLiteral("  FRONTLINES  ")},
             {menu.mnu_e_railway, menu.mnu_v_railways, fra_railway, fra_control->upd_view_railway,
              QStringLiteral("  RAILWAYS  ")},
             {menu.mnu_e_roadint, menu.mnu_v_roadint, fra_roadint, fra_control->upd_view_roadint,
              QStringLiteral("  ROAD INTERDICTION WAYPOINTS  ")},
             {menu.mnu_e_railint, menu.mnu_v_railint, fra_railint, fra_control->upd_view_railint,
              QStringLiteral("  RAIL INTERDICTION WAYPOINTS  ")}}},
      session_(session) {
    mapFrame->LayOver(startLinks);
    lbl_upside_down->setObjectName(QStringLiteral("lbl_upside_down"));
    lbl_upside_down->setText(QStringLiteral(
        "The generated map is upside down. <a href=\"#\">Mirror&nbsp;the&nbsp;map&nbsp;picture</a>"));
    lbl_upside_down->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    lbl_upside_down->setWordWrap(true);
    lbl_under->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    workspace = new Workspace(
        mapFrame,
        {MakeColumn(window), fra_target, fra_airfield, fra_frontline, fra_railway, fra_roadint, fra_railint},
        window);
    window->setCentralWidget(workspace);
    window->setStatusBar(sb_status);
    ShowState();
}

QWidget *MainWidgets::MakeColumn(QWidget *window) const {
    auto *column = new QWidget(window);
    column->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto *rows = new QVBoxLayout(column);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(FrameFlow::spacing);
    rows->addWidget(Img_SmallMap, 0, Qt::AlignHCenter);
    rows->addWidget(fra_control);
    rows->addWidget(lbl_under, 1);
    rows->addWidget(lbl_upside_down);
    return column;
}

void MainWidgets::ShowSelections() const {
    for (const ModeControls &controls : modes)
        controls.frame->ShowSelection();
    fra_control->Refresh();
}

void MainWidgets::ShowState() const {
    const WindowState state = WindowStateOf(session_);
    menu.mnu_m_zoom->setEnabled(state.projectEnabled);
    menu.mnu_view->setEnabled(state.projectEnabled);
    for (QAction *entry : {menu.mnu_p_export, menu.mnu_p_copy, menu.mnu_p_versions, menu.mnu_p_mirror,
                           menu.mnu_p_tiles, menu.mnu_e_list})
        entry->setEnabled(state.projectEnabled);
    lbl_upside_down->setVisible(session_.mapIsUpsideDown);
    startLinks->SetVisible(!state.projectEnabled);
    fra_control->setEnabled(state.projectEnabled);
    fra_airfield->setEnabled(state.airfieldFrameEnabled);
    for (std::size_t i = 0; i < modes.size(); ++i) {
        const ModeControls &controls = modes[i];
        const WindowState::OfMode &mode = state.modes[i];
        controls.entry->setChecked(mode.entryChecked);
        controls.layerEntry->setChecked(mode.layerChecked);
        controls.frame->setEnabled(mode.frameEnabled);
        if (controls.viewSelector != nullptr)
            controls.viewSelector->setEnabled(mode.viewSelectorEnabled);
        if (mode.entryChecked)
            sb_status->curredit->setText(controls.statusText);
    }
    menu.mnu_v_goto->setEnabled(state.goToEnabled);
    menu.mnu_m_z_in->setEnabled(state.zoomMenu.inEnabled);
    menu.mnu_m_z_out->setEnabled(state.zoomMenu.outEnabled);
    menu.mnu_m_z_100->setChecked(state.zoomMenu.checked100);
    menu.mnu_m_z_200->setChecked(state.zoomMenu.checked200);
    menu.mnu_m_z_400->setChecked(state.zoomMenu.checked400);
    ShowEdits();
}

void MainWidgets::BringSelectionIntoView() const {
    workspace->BringIntoView(modes[static_cast<std::size_t>(session_.mode)].frame);
    const MapPixel selected = SelectedPixel(session_);
    mapFrame->BringIntoView(selected.x, selected.y);
}

void MainWidgets::ShowEdits() const {
    const EditState state = EditStateOf(session_);
    ShowEdit(*menu.mnu_e_undo, QStringLiteral("&Undo"), state.undo);
    ShowEdit(*menu.mnu_e_redo, QStringLiteral("R&edo"), state.redo);
    sb_status->lbl_edited->ShowFiles(state.editedFiles);
    for (const ModeControls &controls : modes)
        controls.frame->ShowNote();
    fra_airfield->ShowNote();
}

}  // namespace vtr
