#include "ItemCommands.h"

#include <utility>

#include "Arithmetic.h"
#include "ErrorReport.h"
#include "Operation.h"
#include "RailwayPanel.h"
#include "ReorderTargets.h"
#include "ShowMessage.h"
#include "TargetPanel.h"
#include "TileTypes.h"
#include "frm_findtarget.h"
#include "frm_precise.h"
#include "frm_progress.h"

namespace vtr {

ItemCommands::ItemCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                           std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), window_(window), redraw_(std::move(redraw)) {
    connect(widgets.fra_target, &TargetPanel::FindRequested, this, &ItemCommands::FindTarget);
    connect(widgets.fra_target, &TargetPanel::ReorderRequested, this, &ItemCommands::ReorderAllTargets);
    connect(widgets.fra_target, &TargetPanel::TileRequested, this, &ItemCommands::ViewTile);
    connect(widgets.fra_target, &TargetPanel::PreciseRequested, this,
            [this] { PositionPrecisely(widgets_.fra_target->Position()); });
    connect(widgets.fra_railway, &RailwayPanel::PreciseRequested, this,
            [this](int end) { PositionPrecisely(widgets_.fra_railway->Position(end)); });
}

void ItemCommands::FindTarget() {
    frm_findtarget(
        session_.campaign.TargetTable, [this](int found) { widgets_.fra_target->Select(found); }, window_)
        .exec();
}

void ItemCommands::ReorderAllTargets() {
    const Operation reordering(session_.operation, tr("Reordering the targets"));
    frm_progress progress(window_);
    progress.setWindowTitle(QStringLiteral("Reorder Targets..."));
    progress.show();
    double value = 0;
    std::optional<NewTargetIndices> newIndices;
    session_.Do("Reorder Targets", {{Table::Targets}}, [&](Campaign &campaign) {
        newIndices = ReorderTargets(campaign, [&](double step) { progress.SetProgress(value += step); });
        // The selected target stays selected, wherever it went.
        if (newIndices)
            widgets_.fra_target->Renumber(
                static_cast<int>((*newIndices)[static_cast<std::size_t>(session_.selection.target)]));
    });
    if (!newIndices)
        ShowMessage(window_, QMessageBox::Warning, QString::fromUtf8(reorderFailedMessage));
    progress.hide();
    if (!newIndices)
        return;
    redraw_();
}

bool ItemCommands::ShowTileAt(const PositionFields &position, frm_precise &dialog) const {
    const TerrainMap &terrain = session_.campaign.terrain;
    const std::string file = session_.campaign.paths.PathOf(session_.campaign.paths.MapTM);
    try {
        const std::uint8_t tile = TerrainByte(terrain, position.x->value(), position.y->value(),
                                              {.file = file, .item = "terrain tile"});
        dialog.ShowTile(ToByte(TileTypeOf(tile)), TileOrientationOf(tile));
        return true;
    } catch (const Error &error) {
        ShowMessage(
            window_, QMessageBox::Warning,
            ErrorReport(tr("Finding the tile"), error,
                        tr("Nothing was changed. Move the item to a place on the map, then try again.")));
        return false;
    }
}

void ItemCommands::PositionPrecisely(const PositionFields &position) {
    frm_precise dialog(session_.campaign.paths.TilesDir, window_);
    dialog.SetPosition(ToInt16(position.xMetres->value()), ToInt16(position.yMetres->value()));
    if (!ShowTileAt(position, dialog))
        return;
    dialog.exec();
    const OneEdit placing(session_.history);
    position.xMetres->SetNumber(RoundToInt32(dialog.MetresX()));
    position.yMetres->SetNumber(RoundToInt32(dialog.MetresY()));
}

void ItemCommands::ViewTile() {
    frm_precise dialog(session_.campaign.paths.TilesDir, window_);
    if (ShowTileAt(widgets_.fra_target->Position(), dialog))
        dialog.exec();
}

}  // namespace vtr
