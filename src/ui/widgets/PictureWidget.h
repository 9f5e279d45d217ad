#pragma once

#include <QWidget>

#include "Picture.h"

namespace vtr {

/// A picture on the screen, a pixel of it a pixel there. Assistive tools are told that it is one.
class PictureWidget : public QWidget {
    Q_OBJECT

  public:
    explicit PictureWidget(const QString &name, QWidget *parent = nullptr);

    /// Takes the picture's size. An empty one shows as black and leaves the size as it is.
    void SetPicture(Picture picture);
    const Picture &Shown() const { return picture_; }
    /// What it shows, to be drawn on without changing its size, black at first; call update() afterwards.
    Picture &Surface();

  Q_SIGNALS:
    /// An arrow key: what is marked in the picture is to move by (dx, dy) pixels.
    void NudgeRequested(int dx, int dy);

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    Picture picture_;  ///< empty until it is asked for: the window opens sooner without 800 KB of black
};

}  // namespace vtr
