#pragma once

#include <QMouseEvent>

#include "MainWidgets.h"

namespace vtr {

/// The mouse and the arrow keys on the map. They never change the campaign: they set the numeric fields of
/// the panels, whose handlers do.
class MapEditing : public QObject {
    Q_OBJECT

  public:
    MapEditing(Session &session, MainWidgets &widgets);

  private:
    void ShowPosition(const QMouseEvent &event);
    void OpenZoomMenu(const QMouseEvent &event);
    void EditAt(const QMouseEvent &event);
    void SelectTargetAt(int x, int y);
    void Nudge(int dx, int dy);

    Session &session_;
    MainWidgets &widgets_;
};

}  // namespace vtr
