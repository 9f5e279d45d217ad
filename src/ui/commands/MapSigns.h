#pragma once

#include <QMouseEvent>
#include <optional>

#include "MainWidgets.h"

namespace vtr {

class MarkOverlay;

/// What helps to know the map: the line that tells what is under the pointer, and the mark on the selected
/// item.
class MapSigns : public QObject {
    Q_OBJECT

  public:
    MapSigns(const Session &session, MainWidgets &widgets);

    /// The map has just been drawn.
    void MapDrawn();

  private:
    void MovePointer(const QMouseEvent &event);
    void TellWhatIsUnder();
    void ShowMark();

    const Session &session_;
    MainWidgets &widgets_;
    MarkOverlay *mark_;
    MapView drawn_;                  ///< the view that the map was drawn with
    std::optional<QPoint> pointer_;  ///< the pixel of the viewport that the pointer is on
    bool isDragging_ = false;        ///< the middle button is held, with a pointer of its own
};

}  // namespace vtr
