#include "Workspace.h"

#include <QApplication>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "FrameFlow.h"
#include "MapFrame.h"

namespace vtr {

namespace {

constexpr QMargins margins(6, 6, 6, 2);
/// As much of the frames is seen below the map at least.
constexpr int leastScrolledHeight = 100;

/// Makes parent the frames' parent. The keyboard focus stays where it is.
void Own(const std::vector<QWidget *> &frames, QWidget *parent) {
    for (QWidget *frame : frames) {
        if (frame->parentWidget() == parent)
            continue;
        QWidget *const focus = QApplication::focusWidget();
        const bool hasFocus = frame->isAncestorOf(focus);
        frame->setParent(parent);
        frame->show();
        if (hasFocus)
            focus->setFocus();
    }
}

}  // namespace

/// Where the frames stand around a map of some size.
struct Workspace::Arrangement {
    int factor;
    FrameFlow beside;
    FrameFlow below;
    QPoint besideCorner;
    QPoint belowCorner = {};
    int hiddenHeight = 0;   ///< so much does not fit; negative when there is room left
    int visibleHeight = 0;  ///< of the part that is scrolled
    bool isWideEnough = false;

    /// The only part that is ever scrolled: what stands below the map, or beside it when nothing stands
    /// below.
    const FrameFlow &Scrolled() const { return below.Frames().empty() ? beside : below; }
};

Workspace::Workspace(MapFrame *mapFrame, std::vector<QWidget *> frames, QWidget *parent)
    : QWidget(parent),
      mapFrame_(mapFrame),
      frames_(std::move(frames)),
      besideFirst_(frames_),
      scroll_(new QScrollArea(this)),
      contents_(new QWidget),
      inView_(frames_.at(1)) {
    std::stable_sort(besideFirst_.begin() + 1, besideFirst_.end(), [](const QWidget *a, const QWidget *b) {
        return a->minimumSizeHint().width() < b->minimumSizeHint().width();
    });
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(contents_);
    mapFrame_->setParent(this);
    Own(frames_, contents_);
    contents_->installEventFilter(this);
}

void Workspace::BringIntoView(const QWidget *frame) {
    inView_ = frame;
    ScrollToFrame();
}

QSize Workspace::minimumSizeHint() const {
    return MapSize(1).grownBy(margins) + QSize(0, leastScrolledHeight);
}

QSize Workspace::MapSize(int factor) const {
    const QSize map = mapFrame_->Img_Map->size();
    return mapFrame_->sizeHint() - map + map / mapFrame_->Img_Map->Factor() * factor;
}

bool Workspace::event(QEvent *event) {
    if (event->type() == QEvent::LayoutRequest)
        Arrange();
    return QWidget::event(event);
}

bool Workspace::eventFilter(QObject *watched, QEvent *event) {
    // A frame's texts have changed.
    if (event->type() == QEvent::LayoutRequest)
        Arrange();
    return QWidget::eventFilter(watched, event);
}

void Workspace::resizeEvent(QResizeEvent * /*event*/) {
    Arrange();
    ScrollToFrame();
}

Workspace::Arrangement Workspace::ArrangementOf(int factor, std::size_t besideTotal, QSize room) const {
    std::vector<QWidget *> beside;
    std::vector<QWidget *> below;
    for (QWidget *frame : frames_) {
        const auto rank = std::ranges::find(besideFirst_, frame) - besideFirst_.begin();
        (rank < static_cast<std::ptrdiff_t>(besideTotal) ? beside : below).push_back(frame);
    }
    const QSize map = MapSize(factor);
    const QPoint corner(margins.left(), margins.top());
    Arrangement arrangement{
        .factor = factor,
        .beside = FrameFlow(beside, room.width() - map.width() - FrameFlow::spacing, map.height()),
        .below = FrameFlow(below, room.width()),
        .besideCorner = corner + QPoint(map.width() + FrameFlow::spacing, 0),
    };
    const int top = std::max(map.height(), arrangement.beside.Height());
    arrangement.belowCorner = corner + QPoint(0, top + FrameFlow::spacing);
    const int height = below.empty() ? top : top + FrameFlow::spacing + arrangement.below.Height();
    arrangement.hiddenHeight = height - room.height();
    arrangement.visibleHeight = room.height() - (below.empty() ? 0 : top + FrameFlow::spacing);
    arrangement.isWideEnough = map.width() <= room.width() && arrangement.beside.Fits();
    return arrangement;
}

std::optional<Workspace::Arrangement> Workspace::BestArrangement(int factor) const {
    QSize room = size().shrunkBy(margins);
    for (std::size_t i = 0; i <= frames_.size(); ++i) {
        // The first frame stands beside the map if it can: the way without it comes last.
        const std::size_t besideTotal = (i + 1) % (frames_.size() + 1);
        Arrangement arrangement = ArrangementOf(factor, besideTotal, room);
        if (arrangement.isWideEnough && arrangement.below.Fits() && arrangement.hiddenHeight <= 0)
            return arrangement;
    }
    room.rwidth() -= style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, scroll_);
    std::optional<Arrangement> best;
    for (std::size_t besideTotal = 0; besideTotal <= frames_.size(); ++besideTotal) {
        Arrangement arrangement = ArrangementOf(factor, besideTotal, room);
        // Only the smallest map may leave less than the whole of a frame in view.
        const FrameFlow &scrolled = arrangement.Scrolled();
        const bool isUsable = factor > 1
                                  ? scrolled.Fits() && arrangement.visibleHeight >= scrolled.HighestRow()
                                  : arrangement.visibleHeight >= leastScrolledHeight;
        if (arrangement.isWideEnough && isUsable && (!best || arrangement.hiddenHeight < best->hiddenHeight))
            best = std::move(arrangement);
    }
    return best;
}

void Workspace::Arrange() {
    int factor = std::max(size().shrunkBy(margins).width() / mapWidth, 1);
    std::optional<Arrangement> best = BestArrangement(factor);
    while (!best && --factor > 0)
        best = BestArrangement(factor);
    if (!best)  // the window is not as large yet as it must be
        return;
    const Arrangement &arrangement = *best;
    if (mapFrame_->Img_Map->Factor() != arrangement.factor)
        mapFrame_->Img_Map->SetFactor(arrangement.factor);
    mapFrame_->setGeometry(QRect({margins.left(), margins.top()}, MapSize(arrangement.factor)));

    const FrameFlow &scrolled = arrangement.Scrolled();
    const bool scrollsBelow = &scrolled == &arrangement.below;
    const FrameFlow &fixed = scrollsBelow ? arrangement.beside : arrangement.below;
    const QPoint corner = scrollsBelow ? arrangement.belowCorner : arrangement.besideCorner;
    Own(scrolled.Frames(), contents_);
    Own(fixed.Frames(), this);
    scroll_->setGeometry(QRect(corner, rect().marginsRemoved(margins).bottomRight()));
    contents_->resize(scrolled.Width(), scrolled.Height());
    scrolled.Place({0, 0});
    fixed.Place(arrangement.besideCorner);
}

void Workspace::ScrollToFrame() {
    if (inView_->parentWidget() != contents_)
        return;
    // When it is larger than the view, its upper left part counts.
    const auto scroll = [](QScrollBar &bar, int from, int to) {
        bar.setValue(std::min(std::max(bar.value(), to - bar.pageStep()), from));
    };
    const QRect frame = inView_->geometry();
    scroll(*scroll_->verticalScrollBar(), frame.top(), frame.bottom() + 1);
    scroll(*scroll_->horizontalScrollBar(), frame.left(), frame.right() + 1);
}

}  // namespace vtr
