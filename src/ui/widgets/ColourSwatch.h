#pragma once

#include <QFrame>

namespace vtr {

/// Shows a colour. A click, Space or Enter asks for another one.
class ColourSwatch : public QFrame {
    Q_OBJECT

  public:
    explicit ColourSwatch(const QString &name, QWidget *parent = nullptr);

    void ShowColour(const QColor &colour);

  Q_SIGNALS:
    void Clicked();

  protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

}  // namespace vtr
