#include "ListCommands.h"

#include <utility>

#include "AtomicWrite.h"
#include "ErrorReport.h"
#include "FileChooser.h"
#include "ItemSelection.h"
#include "Operation.h"
#include "Panel.h"
#include "Paths.h"
#include "ShowMessage.h"
#include "frm_list.h"

namespace vtr {

ListCommands::ListCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                           std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), window_(window), redraw_(std::move(redraw)) {
    connect(widgets.menu.mnu_e_list, &QAction::triggered, this, &ListCommands::Open);
}

void ListCommands::TablesChanged() {
    if (list_ != nullptr)
        list_->TablesChanged();
}

void ListCommands::Open() {
    if (list_ == nullptr) {
        list_ = new frm_list(session_.campaign, window_);
        // Their keys work in the list too.
        list_->addActions({widgets_.menu.mnu_e_undo, widgets_.menu.mnu_e_redo});
        connect(list_, &frm_list::ItemChosen, this, &ListCommands::ShowItem);
        connect(list_, &frm_list::SaveRequested, this, &ListCommands::SaveAsCsv);
    }
    list_->ShowBeside(*window_);
}

void ListCommands::ShowItem(ItemKind kind, int row) {
    if (!SelectRow(session_, kind, static_cast<std::size_t>(row))) {
        list_->Say(tr("No target uses airfield %1, so it is not on the map.").arg(row));
        return;
    }
    widgets_.modes[static_cast<std::size_t>(session_.mode)].frame->ShowSelection();
    widgets_.ShowState();
    widgets_.BringSelectionIntoView();
    redraw_();
}

void ListCommands::SaveAsCsv() {
    const Operation saving(session_.operation, tr("Saving the list"));
    const std::string path =
        ChooseFile(list_, QFileDialog::AcceptSave, tr("Save as CSV"), "Comma-separated values|*.csv",
                   session_.campaign.paths.ProjectDir + list_->FileName());
    if (path.empty())
        return;
    try {
        const std::string text = CommaSeparated(list_->ShownRows());
        AtomicWrite(path, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
        list_->Say(tr("Saved as %1").arg(QString::fromStdString(std::string(FileNameOf(path)))));
    } catch (const Error &error) {
        ShowMessage(list_, QMessageBox::Warning,
                    ErrorReport(QString::fromStdString(session_.operation), error,
                                tr("Your edits are as they were. Choose another name or folder for the list, "
                                   "or put right what is said above and save it again.")));
    }
}

}  // namespace vtr
