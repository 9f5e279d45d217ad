#include "MapFrame.h"

#include <QGridLayout>
#include <QLabel>
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

bool IsOnMap(int x, int y) {
    return x >= 0 && x < mapWidth && y >= 0 && y < mapHeight;
}

/// Scrolls to a place that lies in the middle of what is shown then.
void ScrollToMiddle(QScrollBar &bar, int place) {
    bar.setValue(place - bar.pageStep() / 2);
}

/// It fills the corner between the scroll bars, where nothing else is, and makes it no larger.
QLabel *MakeBehindSign(QWidget *parent) {
    auto *sign = new QLabel(QStringLiteral("!"), parent);
    sign->setObjectName(QStringLiteral("lbl_behind"));
    sign->setAccessibleName(MapFrame::tr("The map does not yet show where the scroll bars are"));
    sign->setToolTip(
        MapFrame::tr("The scroll bars have moved, the map follows with the next redraw. "
                     "A click on the overview redraws it at once."));
    sign->setAlignment(Qt::AlignCenter);
    QFont font = sign->font();
    font.setBold(true);
    font.setPixelSize(11);  // whatever size the other texts have: the corner stays as small
    sign->setFont(font);
    sign->setAutoFillBackground(true);
    sign->setBackgroundRole(QPalette::Highlight);
    sign->setForegroundRole(QPalette::HighlightedText);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    policy.setRetainSizeWhenHidden(true);
    sign->setSizePolicy(policy);
    sign->hide();
    return sign;
}

}  // namespace

MapFrame::MapFrame(MapView &view, QWidget *parent)
    : QWidget(parent),
      Img_Map(new MapSurface(this)),
      view_(view),
      h_scroll_(AddScrollBar("h_scroll", Qt::Horizontal, HScrollChanged)),
      v_scroll_(AddScrollBar("v_scroll", Qt::Vertical, VScrollChanged)),
      lbl_behind_(MakeBehindSign(this)) {
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(focusFrameWidth, focusFrameWidth, 0, 0);
    layout->setSpacing(focusFrameWidth);
    layout->addWidget(Img_Map, 0, 0);
    layout->addWidget(v_scroll_, 0, 1);
    layout->addWidget(h_scroll_, 1, 0);
    layout->addWidget(lbl_behind_, 1, 1);
    connect(Img_Map, &MapSurface::FocusChanged, this, [this] { update(); });
}

void MapFrame::LayOver(QLayout *layout) {
    static_cast<QGridLayout *>(this->layout())->addLayout(layout, 0, 0, Qt::AlignCenter);
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
        lbl_behind_->setVisible(IsBehind());
        Q_EMIT AreaChanged();
    });
    return bar;
}

void MapFrame::Zoom(const std::function<void(MapView &view, ScrollBars bars)> &command) {
    BarControl horizontal(*h_scroll_);
    BarControl vertical(*v_scroll_);
    command(view_, {horizontal, vertical});
    Q_EMIT AreaChanged();
}

void MapFrame::ScrollTo(int left, int top) {
    h_scroll_->setValue(left);
    v_scroll_->setValue(top);
}

bool MapFrame::Centre(int x, int y) {
    if (!IsOnMap(x, y))
        return false;
    ScrollToMiddle(*h_scroll_, x);
    ScrollToMiddle(*v_scroll_, y);
    return true;
}

void MapFrame::BringIntoView(int x, int y) {
    if (!IsOnMap(x, y))
        return;
    const auto bring = [](QScrollBar &bar, int place) {
        if (place < bar.value() || place >= bar.value() + bar.pageStep())
            ScrollToMiddle(bar, place);
    };
    bring(*h_scroll_, x);
    bring(*v_scroll_, y);
}

void MapFrame::MapDrawn() {
    drawn_ = {h_scroll_->value(), v_scroll_->value()};
    lbl_behind_->hide();
}

bool MapFrame::IsBehind() const {
    return drawn_ != QPoint(h_scroll_->value(), v_scroll_->value());
}

void MapFrame::paintEvent(QPaintEvent * /*event*/) {
    if (!Img_Map->hasFocus())
        return;
    const QMargins frame(focusFrameWidth, focusFrameWidth, focusFrameWidth, focusFrameWidth);
    QPainter(this).fillRect(Img_Map->geometry() + frame, palette().highlight());
}

}  // namespace vtr
