#include "FrameFlow.h"

#include <QHBoxLayout>
#include <algorithm>
#include <utility>

namespace vtr {

namespace {

/// So that the frames end at one line, a row that lacks so little fills the width, and a frame the row's
/// height.
constexpr QSize little(40, 64);

/// Lays the frames out side by side.
class RowLayout : public QHBoxLayout {
  public:
    explicit RowLayout(const std::vector<QWidget *> &frames) {
        setContentsMargins(0, 0, 0, 0);
        setSpacing(FrameFlow::spacing);
        for (QWidget *frame : frames)
            addItem(new QWidgetItem(frame));
    }
    void Place(const QRect &row) {
        for (int i = 0; i < count(); ++i) {
            const QWidget &frame = *itemAt(i)->widget();
            if (frame.sizePolicy().verticalPolicy() != QSizePolicy::Expanding &&
                frame.minimumSizeHint().height() < row.height() - little.height())
                itemAt(i)->setAlignment(Qt::AlignTop);
        }
        setGeometry(row);
    }
    int HeightAt(int width) const {
        return hasHeightForWidth() ? minimumHeightForWidth(width) : minimumSize().height();
    }
};

}  // namespace

FrameFlow::FrameFlow(std::vector<QWidget *> frames, int width, int leastHeight)
    : frames_(std::move(frames)), width_(width) {
    for (QWidget *frame : frames_) {
        const int itsWidth = frame->minimumSizeHint().width();
        if (rows_.empty() || rows_.back().width + spacing + itsWidth > width)
            rows_.push_back({{frame}, itsWidth, 0});
        else {
            rows_.back().frames.push_back(frame);
            rows_.back().width += spacing + itsWidth;
        }
    }
    for (Row &row : rows_) {
        if (row.width <= width && row.width >= width - little.width())
            row.width = width;
        row.height = RowLayout(row.frames).HeightAt(row.width);
    }
    if (rows_.size() == 1)
        rows_.front().height = std::max(rows_.front().height, leastHeight);
}

int FrameFlow::Width() const {
    return rows_.empty() ? 0 : std::ranges::max_element(rows_, {}, &Row::width)->width;
}

int FrameFlow::Height() const {
    int height = -spacing;
    for (const Row &row : rows_)
        height += row.height + spacing;
    return std::max(height, 0);
}

int FrameFlow::HighestRow() const {
    return rows_.empty() ? 0 : std::ranges::max_element(rows_, {}, &Row::height)->height;
}

void FrameFlow::Place(QPoint corner) const {
    for (const Row &row : rows_) {
        RowLayout(row.frames).Place(QRect(corner, QSize(row.width, row.height)));
        corner.ry() += row.height + spacing;
    }
}

}  // namespace vtr
