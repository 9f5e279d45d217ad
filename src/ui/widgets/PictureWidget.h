#pragma once

#include <QWidget>

#include "Picture.h"

namespace vtr {

/// Shows a picture, one screen pixel for each of its pixels. Assistive tools see it as a picture.
class PictureWidget : public QWidget {
    Q_OBJECT

  public:
    explicit PictureWidget(const QString &name, QWidget *parent = nullptr);

    /// The widget takes the picture's size. An empty picture shows as black and leaves the size as it is.
    void SetPicture(Picture picture);
    const Picture &Shown() const { return picture_; }
    /// The shown picture to draw on, black at first. Do not change its size, and call update() afterwards.
    Picture &Surface();

  Q_SIGNALS:
    /// An arrow key asks to move what is marked in the picture by (dx, dy) pixels.
    void NudgeRequested(int dx, int dy);

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    Picture picture_;  ///< empty at first: the window opens sooner without 800 KB of black
};

}  // namespace vtr
