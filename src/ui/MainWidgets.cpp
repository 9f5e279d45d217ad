#include "MainWidgets.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "AirfieldPanel.h"
#include "Arithmetic.h"
#include "ControlBox.h"
#include "FrontlinePanel.h"
#include "MapFrame.h"
#include "NumberField.h"
#include "Overview.h"
#include "RailwayPanel.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"

namespace vtr {

MainWidgets::MainWidgets(QMainWindow *window, Session &session)
    : menu(window->menuBar()),
      mapFrame(new MapFrame(session.view, window)),
      Img_SmallMap(new Overview(window)),
      fra_control(new ControlBox(session.campaign, window)),
      fra_target(new TargetPanel(session.campaign, window)),
      fra_airfield(new AirfieldPanel(session.campaign, window)),
      fra_frontline(new FrontlinePanel(session.campaign, window)),
      fra_railway(new RailwayPanel(session.campaign, window)),
      fra_roadint(new WaypointPanel(WaypointPanel::Kind::Road, session.campaign, window)),
      fra_railint(new WaypointPanel(WaypointPanel::Kind::Rail, session.campaign, window)),
      sb_status(new StatusBar(window)) {
    auto *centre = new QWidget(window);
    LayOut(centre);
    window->setCentralWidget(centre);
    window->setStatusBar(sb_status);
    menu.mnu_m_zoom->setEnabled(false);
    menu.mnu_view->setEnabled(false);
    menu.mnu_p_export->setEnabled(false);
}

void MainWidgets::LayOut(QWidget *centre) const {
    auto *side = new QVBoxLayout;
    side->addWidget(Img_SmallMap, 0, Qt::AlignHCenter);
    side->addWidget(fra_control);
    side->addStretch();
    auto *top = new QHBoxLayout;
    top->addWidget(mapFrame, 0, Qt::AlignTop);
    top->addLayout(side);
    auto *middle = new QHBoxLayout;
    middle->addWidget(fra_target);
    middle->addWidget(fra_airfield);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(fra_frontline);
    bottom->addWidget(fra_railway);
    bottom->addWidget(fra_roadint);
    bottom->addWidget(fra_railint);
    auto *rows = new QVBoxLayout(centre);
    rows->setContentsMargins(6, 6, 6, 2);
    rows->setSpacing(4);
    rows->addLayout(top);
    rows->addLayout(middle);
    rows->addLayout(bottom);
    rows->addStretch();
}

MapDisplay MainWidgets::Display() const {
    MapDisplay display;
    display.mnu_v_targets = menu.mnu_v_targets->isChecked();
    display.mnu_v_frontlines = menu.mnu_v_frontlines->isChecked();
    display.mnu_v_railways = menu.mnu_v_railways->isChecked();
    display.mnu_v_roadint = menu.mnu_v_roadint->isChecked();
    display.mnu_v_railint = menu.mnu_v_railint->isChecked();
    display.mnu_e_frontline = menu.mnu_e_frontline->isChecked();
    display.mnu_e_railway = menu.mnu_e_railway->isChecked();
    display.upd_frnt_num = ToInt16(fra_frontline->Slot());
    display.upd_frnt_pointnum = ToInt16(fra_frontline->Point());
    display.upd_rail_linenum = ToInt16(fra_railway->Selected());
    display.upd_tar_code = ToInt16(fra_target->Selected());
    display.upd_view_railway = ToInt16(fra_control->upd_view_railway->value());
    display.upd_view_roadint = ToInt16(fra_control->upd_view_roadint->value());
    display.upd_view_railint = ToInt16(fra_control->upd_view_railint->value());
    return display;
}

}  // namespace vtr
