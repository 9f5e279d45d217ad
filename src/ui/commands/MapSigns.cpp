#include "MapSigns.h"

#include "MapFrame.h"
#include "MarkOverlay.h"
#include "Panel.h"
#include "QuietLine.h"
#include "UnderPointer.h"

namespace vtr {

MapSigns::MapSigns(const Session &session, MainWidgets &widgets)
    : session_(session), widgets_(widgets), mark_(new MarkOverlay(widgets.mapFrame->Img_Map)) {
    const MapSurface *map = widgets.mapFrame->Img_Map;
    for (const auto mouse : {&MapSurface::MousePressed, &MapSurface::MouseMoved, &MapSurface::MouseReleased})
        connect(map, mouse, this, [this](const QMouseEvent *event) { MovePointer(*event); });
    connect(map, &MapSurface::MouseLeft, this, [this] {
        pointer_.reset();
        TellWhatIsUnder();
    });
    for (const MainWidgets::ModeControls &mode : widgets.modes) {
        connect(mode.entry, &QAction::toggled, this, [this] {
            ShowMark();
            TellWhatIsUnder();
        });
        connect(mode.frame, &Panel::ItemShown, this, &MapSigns::ShowMark);
    }
}

void MapSigns::MapDrawn() {
    drawn_ = session_.view;
    ShowMark();
    TellWhatIsUnder();
}

void MapSigns::MovePointer(const QMouseEvent &event) {
    isDragging_ = event.buttons().testFlag(Qt::MiddleButton);
    pointer_ = widgets_.mapFrame->Img_Map->PixelUnder(event);
    TellWhatIsUnder();
}

void MapSigns::TellWhatIsUnder() {
    const UnderPointer under =
        pointer_ ? WhatIsUnder(session_, pointer_->x(), pointer_->y()) : UnderPointer{};
    widgets_.lbl_under->SetText(QString::fromStdString(under.text));
    const Qt::CursorShape shape = under.clickSelects ? Qt::PointingHandCursor : Qt::CrossCursor;
    MapSurface &map = *widgets_.mapFrame->Img_Map;
    if (!isDragging_ && map.cursor().shape() != shape)
        map.setCursor(shape);
}

void MapSigns::ShowMark() {
    const std::optional<MapPixel> item = PixelToMark(session_);
    mark_->ShowMark(item ? MarkOf(drawn_, item->x, item->y) : SelectionMark{});
}

}  // namespace vtr
