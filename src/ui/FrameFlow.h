#pragma once

#include <QWidget>
#include <vector>

namespace vtr {

/// Frames in rows of natural width, as many in a row as fit.
class FrameFlow {
  public:
    static constexpr int spacing = 4;

    /// The row is as high as leastHeight at least when there is only one.
    FrameFlow(std::vector<QWidget *> frames, int width, int leastHeight = 0);

    const std::vector<QWidget *> &Frames() const { return frames_; }

    /// Only a frame that is alone in its row can be too wide.
    bool Fits() const { return Width() <= width_; }
    int Width() const;
    int Height() const;
    int HighestRow() const;
    void Place(QPoint corner) const;

  private:
    struct Row {
        std::vector<QWidget *> frames;
        int width;
        int height;
    };

    std::vector<QWidget *> frames_;
    int width_;
    std::vector<Row> rows_;
};

}  // namespace vtr
