#include "MapFrame.h"

#include <QGridLayout>
#include <QPainter>

#include "Arithmetic.h"

namespace vtr {

namespace {

/// The focus frame fills this space around the map.
constexpr int focusFrameWidth = 2;

class BarControl : public ScrollBarControl {
  public:
    explicit BarControl(QScrollBar &bar) : bar_(bar) {}

    void SetLargeChange(std::int16_t change) override { bar_.setPageStep(change); }
    void SetMaximum(std::int16_t maximum) override { bar_.setMaximum(maximum); }
    void SetValue(std::int16_t value) override { bar_.setValue(value); }

  private:
    QScrollBar &bar_;
};

}  // namespace

MapFrame::MapFrame(MapView &view, QWidget *parent)
    : QWidget(parent),
      Img_Map(new MapSurface(this)),
      view_(view),
      h_scroll_(AddScrollBar("h_scroll", Qt::Horizontal, HScrollChanged)),
      v_scroll_(AddScrollBar("v_scroll", Qt::Vertical, VScrollChanged)) {
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(focusFrameWidth, focusFrameWidth, 0, 0);
    layout->setSpacing(focusFrameWidth);
    layout->addWidget(Img_Map, 0, 0);
    layout->addWidget(v_scroll_, 0, 1);
    layout->addWidget(h_scroll_, 1, 0);
    connect(Img_Map, &MapSurface::FocusChanged, this, [this] { update(); });
}

QScrollBar *MapFrame::AddScrollBar(const char *name, Qt::Orientation orientation,
                                   void (*changed)(MapView &view, std::int16_t value)) {
    auto *bar = new QScrollBar(orientation, this);
    bar->setObjectName(QLatin1String(name));
    bar->setMaximum(0);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setAccessibleName(orientation == Qt::Horizontal ? tr("Map position, left to right")
                                                         : tr("Map position, top to bottom"));
    connect(bar, &QScrollBar::valueChanged, this, [this, changed](int value) {
        changed(view_, ToInt16(value));
        Q_EMIT AreaChanged();
    });
    return bar;
}

void MapFrame::Zoom(void (*command)(MapView &view, ScrollBars bars)) {
    BarControl horizontal(*h_scroll_);
    BarControl vertical(*v_scroll_);
    command(view_, {horizontal, vertical});
    Q_EMIT AreaChanged();
}

void MapFrame::BringIntoView(int x, int y) {
    if (x < 0 || x >= mapWidth || y < 0 || y >= mapHeight)
        return;
    const auto bring = [](QScrollBar &bar, int place) {
        const int shown = bar.pageStep();
        if (place < bar.value() || place >= bar.value() + shown)
            bar.setValue(place - shown / 2);
    };
    bring(*h_scroll_, x);
    bring(*v_scroll_, y);
}

void MapFrame::paintEvent(QPaintEvent * /*event*/) {
    if (!Img_Map->hasFocus())
        return;
    const QMargins frame(focusFrameWidth, focusFrameWidth, focusFrameWidth, focusFrameWidth);
    QPainter(this).fillRect(Img_Map->geometry() + frame, palette().highlight());
}

}  // namespace vtr
