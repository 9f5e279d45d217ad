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
      sb_status(new StatusBar(window)),
      window_(window) {
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

NumberField &MainWidgets::Number(const char *name) const {
    return *window_->findChild<NumberField *>(QLatin1String(name));
}

MapDisplay MainWidgets::Display() const {
    const auto number = [this](const char *name) { return ToInt16(Number(name).value()); };
    MapDisplay display;
    display.mnu_v_targets = menu.mnu_v_targets->isChecked();
    display.mnu_v_frontlines = menu.mnu_v_frontlines->isChecked();
    display.mnu_v_railways = menu.mnu_v_railways->isChecked();
    display.mnu_v_roadint = menu.mnu_v_roadint->isChecked();
    display.mnu_v_railint = menu.mnu_v_railint->isChecked();
    display.mnu_e_frontline = menu.mnu_e_frontline->isChecked();
    display.mnu_e_railway = menu.mnu_e_railway->isChecked();
    display.upd_frnt_num = number("upd_frnt_num");
    display.upd_frnt_pointnum = number("upd_frnt_pointnum");
    display.upd_rail_linenum = number("upd_rail_linenum");
    display.upd_tar_code = number("upd_tar_code");
    display.upd_view_railway = number("upd_view_railway");
    display.upd_view_roadint = number("upd_view_roadint");
    display.upd_view_railint = number("upd_view_railint");
    return display;
}

}  // namespace vtr
