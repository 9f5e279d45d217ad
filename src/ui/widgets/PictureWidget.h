#pragma once

#include <QSinglePointEvent>
#include <QWidget>

#include "EnlargedPicture.h"

namespace vtr {

/// Shows a picture, enlarged by a whole factor and never smoothed. Assistive tools see it as a picture.
class PictureWidget : public QWidget {
    Q_OBJECT

  public:
    explicit PictureWidget(const QString &name, QWidget *parent = nullptr);

    /// The widget takes the picture's size times the factor. An empty picture shows as black and leaves the
    /// size as it is.
    void SetPicture(Picture picture);
    /// How many of the window's pixels wide and high each pixel of the picture is; 1 at first.
    int Factor() const { return factor_; }
    void SetFactor(int factor);
    /// The picture's pixel that the display shows under the pointer, also where the display's pixels are
    /// finer than the window's. It may lie beside the picture.
    QPoint PixelUnder(const QSinglePointEvent &event) const;
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
    /// The picture's columns and rows on a display that has ratio pixels for each of the window's, with the
    /// widget's corner at origin in the window's pixels.
    std::pair<EnlargedAxis, EnlargedAxis> AxesOn(QPointF origin, qreal ratio) const;

    int factor_ = 1;
    Picture picture_;  ///< empty at first: the window opens sooner without 800 KB of black
};

}  // namespace vtr
