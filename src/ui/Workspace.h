#pragma once

#include <QWidget>
#include <optional>
#include <vector>

class QScrollArea;

namespace vtr {

class MapFrame;

/// The window between the menu and the status bar. The map is enlarged as far as each frame can still be seen
/// whole. The frames keep their natural size and stand beside and below the map; what has no room there can
/// be scrolled to, while the map stays where it is.
class Workspace : public QWidget {
    Q_OBJECT

  public:
    /// The frames are in reading order. The first stands beside the map whenever it fits there.
    Workspace(MapFrame *mapFrame, std::vector<QWidget *> frames, QWidget *parent);

    /// Scrolls the frame into view, and again whenever the window's size changes.
    void BringIntoView(const QWidget *frame);
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

  private:
    struct Arrangement;

    Arrangement ArrangementOf(int factor, std::size_t besideTotal, QSize room) const;
    /// The one that hides the least of the frames; nothing when it hides too much.
    std::optional<Arrangement> BestArrangement(int factor) const;
    void Arrange();
    QSize MapSize(int factor) const;
    void ScrollToFrame();

    MapFrame *mapFrame_;
    std::vector<QWidget *> frames_;
    std::vector<QWidget *> besideFirst_;  ///< the frames in the order in which they go up beside the map
    QScrollArea *scroll_;
    QWidget *contents_;  ///< what scroll_ scrolls
    const QWidget *inView_;
};

}  // namespace vtr
