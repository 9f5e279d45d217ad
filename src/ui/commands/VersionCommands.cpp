#include "VersionCommands.h"

#include <utility>

#include "Operation.h"
#include "StatusBar.h"
#include "frm_versions.h"

namespace vtr {

VersionCommands::VersionCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                 std::function<void()> showTables)
    : QObject(window),
      session_(session),
      widgets_(widgets),
      window_(window),
      showTables_(std::move(showTables)) {
    connect(widgets.menu.mnu_p_versions, &QAction::triggered, this, &VersionCommands::Show);
}

void VersionCommands::Show() {
    const Operation showing(session_.operation, tr("Taking back an earlier version"));
    frm_versions dialog(VersionSetsIn(VersionsFolderOf(session_.dataFolder, session_.campaign.paths)),
                        session_.campaign, window_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    session_.TakeOver(tr("Take Back Earlier Version").toStdString(), dialog.Chosen());
    showTables_();
    widgets_.sb_status->showMessage(
        tr("Taken back: %1. Save the files to write them.").arg(dialog.ChosenFiles()), 10000);
}

}  // namespace vtr
