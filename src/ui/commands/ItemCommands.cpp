#include "ItemCommands.h"

#include <utility>

#include "Arithmetic.h"
#include "ErrorReport.h"
#include "NumberField.h"
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
    connect(widgets.fra_target, &TargetPanel::PreciseRequested, this, [this] {
        PositionPrecisely({"upd_tar_x", "upd_tar_y", "upd_tar_xm", "upd_tar_ym"});
    });
    connect(widgets.fra_railway, &RailwayPanel::PreciseRequested, this, [this](int end) {
        PositionPrecisely(end == 1
                              ? PositionFields{"upd_rail_x1", "upd_rail_y1", "upd_rail_xm1", "upd_rail_ym1"}
                              : PositionFields{"upd_rail_x2", "upd_rail_y2", "upd_rail_xm2", "upd_rail_ym2"});
    });
}

void ItemCommands::FindTarget() {
    NumberField &selector = widgets_.Number("upd_tar_code");
    frm_findtarget(
        session_.campaign.TargetTable, [&selector](int found) { selector.SetNumber(found); }, window_)
        .exec();
}

void ItemCommands::ReorderAllTargets() {
    const Operation reordering(session_.operation, tr("Reordering the targets"));
    NumberField &selector = widgets_.Number("upd_tar_code");
    frm_progress progress(window_);
    progress.setWindowTitle(QStringLiteral("Reorder Targets..."));
    progress.show();
    double value = 0;
    const auto newIndices =
        ReorderTargets(session_.campaign, [&](double step) { progress.SetProgress(value += step); });
    if (!newIndices)
        ShowMessage(window_, QMessageBox::Warning, QString::fromUtf8(reorderFailedMessage));
    progress.hide();
    if (!newIndices)
        return;
    // The selected target stays selected, wherever it went; the panels show it already.
    selector.ShowRecordValue(static_cast<int>((*newIndices)[static_cast<std::size_t>(selector.value())]));
    redraw_();
}

bool ItemCommands::ShowTileAt(const char *xField, const char *yField, frm_precise &dialog) const {
    const TerrainMap &terrain = session_.campaign.terrain;
    const std::string file = session_.campaign.paths.PathOf(session_.campaign.paths.MapTM);
    try {
        const std::uint8_t tile =
            TerrainByte(terrain, widgets_.Number(xField).value(), widgets_.Number(yField).value(),
                        {.file = file, .item = "terrain tile"});
        dialog.ShowTile(ToByte(TileTypeOf(tile)), static_cast<float>(TileRotationOf(tile)));
        return true;
    } catch (const Error &error) {
        ShowMessage(window_, QMessageBox::Warning,
                    ErrorReport(tr("Finding the tile"), error, tr("Nothing was changed.")));
        return false;
    }
}

void ItemCommands::PositionPrecisely(const PositionFields &fields) {
    NumberField &xMetres = widgets_.Number(fields.xm);
    NumberField &yMetres = widgets_.Number(fields.ym);
    frm_precise dialog(session_.campaign.paths.TilesDir, window_);
    dialog.SetPosition(ToInt16(xMetres.value()), ToInt16(yMetres.value()));
    if (!ShowTileAt(fields.x, fields.y, dialog))
        return;
    dialog.exec();
    xMetres.SetNumber(RoundToInt32(dialog.MetresX()));
    yMetres.SetNumber(RoundToInt32(dialog.MetresY()));
}

void ItemCommands::ViewTile() {
    frm_precise dialog(session_.campaign.paths.TilesDir, window_);
    if (ShowTileAt("upd_tar_x", "upd_tar_y", dialog))
        dialog.exec();
}

}  // namespace vtr
