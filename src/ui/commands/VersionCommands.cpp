#include "VersionCommands.h"

#include <initializer_list>
#include <utility>

#include "FrontlinePanel.h"
#include "Operation.h"
#include "RailwayPanel.h"
#include "StatusBar.h"
#include "TargetPanel.h"
#include "frm_versions.h"

namespace vtr {

VersionCommands::VersionCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                 std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), window_(window), redraw_(std::move(redraw)) {
    connect(widgets.menu.mnu_p_versions, &QAction::triggered, this, &VersionCommands::Show);
}

void VersionCommands::Show() {
    const Operation showing(session_.operation, tr("Taking back an earlier version"));
    frm_versions dialog(VersionSetsIn(VersionsFolderOf(session_.dataFolder, session_.campaign.paths)),
                        session_.campaign, window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Apply(dialog.Chosen(), Direction::Forwards, session_.campaign);
    for (Panel *panel :
         std::initializer_list<Panel *>{widgets_.fra_target, widgets_.fra_frontline, widgets_.fra_railway})
        panel->ShowSelection();
    redraw_();
    widgets_.sb_status->showMessage(
        tr("Taken back: %1. Save the files to write them.").arg(dialog.ChosenFiles()), 10000);
}

}  // namespace vtr
