#pragma once

#include <QWidget>

class QTextLayout;

namespace vtr {

/// A text that never asks for more room than it was given at first, so that nothing beside it moves when it
/// changes. It is broken into lines; where it has no room its end is left out, and its tooltip has all of it.
class QuietLine : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ Text)

  public:
    /// Asks for so many lines, at least as wide as widest.
    QuietLine(const QString &name, int lines, const QString &widest, QWidget *parent);

    void SetText(const QString &text);
    const QString &Text() const { return text_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    /// Breaks the text into the lines that there is room for. False when that is not all of it: then
    /// shortened is all from the last of these lines on.
    bool LayOut(QTextLayout &layout, QString &shortened) const;

    int lines_;
    QString widest_;
    QString text_;
};

}  // namespace vtr
