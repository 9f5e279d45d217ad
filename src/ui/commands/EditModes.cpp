#include "EditModes.h"

#include <algorithm>

#include "AirfieldPanel.h"
#include "ControlBox.h"
#include "FrontlinePanel.h"
#include "NumberField.h"
#include "RailwayPanel.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "WaypointPanel.h"

namespace vtr {

EditModes::EditModes(MainWidgets &widgets) : widgets_(widgets) {
    const MainMenu &menu = widgets.menu;
    modes_ = {
        {menu.mnu_e_target, widgets.fra_target, nullptr, QStringLiteral("  TARGETS  "), menu.mnu_v_targets},
        {menu.mnu_e_frontline, widgets.fra_frontline, widgets.fra_control->upd_viewfrontline,
         QStringLiteral("  FRONTLINES  "), menu.mnu_v_frontlines},
        {menu.mnu_e_railway, widgets.fra_railway, widgets.fra_control->upd_view_railway,
         QStringLiteral("  RAILWAYS  "), menu.mnu_v_railways},
        {menu.mnu_e_roadint, widgets.fra_roadint, widgets.fra_control->upd_view_roadint,
         QStringLiteral("  ROAD INTERDICTION WAYPOINTS  "), menu.mnu_v_roadint},
        {menu.mnu_e_railint, widgets.fra_railint, widgets.fra_control->upd_view_railint,
         QStringLiteral("  RAIL INTERDICTION WAYPOINTS  "), menu.mnu_v_railint},
    };
    for (const Mode &mode : modes_)
        connect(mode.entry, &QAction::triggered, this, [this, &mode] { SwitchTo(mode); });
}

void EditModes::SwitchToNext() {
    const auto current = std::ranges::find(modes_, widgets_.sb_status->curredit->text(), &Mode::statusText);
    const auto next = current == modes_.end() || current + 1 == modes_.end() ? modes_.begin() : current + 1;
    SwitchTo(*next);
}

void EditModes::SwitchTo(const Mode &chosen) {
    for (const Mode &mode : modes_) {
        const bool isChosen = &mode == &chosen;
        mode.entry->setChecked(isChosen);
        mode.frame->setEnabled(isChosen);
        if (mode.viewSelector != nullptr)
            mode.viewSelector->setEnabled(!isChosen);
    }
    // Coming back to the targets leaves the airfield frame as it is: the next target or check mark sets it.
    if (chosen.entry != widgets_.menu.mnu_e_target)
        widgets_.fra_airfield->setEnabled(false);
    widgets_.sb_status->curredit->setText(chosen.statusText);
    if (!chosen.viewEntry->isChecked())
        chosen.viewEntry->trigger();
}

}  // namespace vtr
