#pragma once

#include <QProxyStyle>

namespace vtr {

/// The contrast of two colours as accessibility rules measure it, 1 (the same) to 21 (black and white).
double ContrastOf(const QColor &a, const QColor &b);
/// A colour for thin outlines on background, from halfway to text on: the first with a contrast of 3, or text
/// itself when none has.
QColor OutlineOn(const QColor &background, const QColor &text);

/// The style of the desktop. On a dark background it also outlines the controls: the usual styles outline
/// them in a darker colour, which is not seen there.
class OutlineStyle : public QProxyStyle {
    Q_OBJECT

  public:
    /// Takes over style.
    explicit OutlineStyle(QStyle *style) : QProxyStyle(style) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
};

}  // namespace vtr
