#include "OutlineStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace vtr {

namespace {

double Luminance(const QColor &colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor Mixed(const QColor &background, const QColor &text, double share) {
    const auto mix = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mix(background.red(), text.red()), mix(background.green(), text.green()),
            mix(background.blue(), text.blue())};
}

/// Of a line with its background, so that it is seen.
constexpr double seenContrast = 3;

enum class Shape { Rectangle, Ellipse };

/// Does nothing on a light background, where the style's own outlines are seen.
void Outline(const QStyleOption &option, const QRect &rect, QPainter &painter,
             Shape shape = Shape::Rectangle) {
    const QColor background = option.palette.color(QPalette::Window);
    const QColor text = option.palette.color(QPalette::WindowText);
    if (Luminance(background) >= Luminance(text))
        return;
    painter.save();
    const QColor highlight = option.palette.color(QPalette::Highlight);
    const bool marksFocus = option.state.testFlag(QStyle::State_HasFocus);
    painter.setPen(marksFocus && ContrastOf(highlight, background) >= seenContrast
                       ? highlight
                       : OutlineOn(background, text));
    painter.setBrush(Qt::NoBrush);
    const QRect outline = rect.adjusted(0, 0, -1, -1);
    if (shape == Shape::Ellipse) {
        // Smoothing spreads a thin line over pixels that are each darker than its colour.
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(text, 1.5));
        painter.drawEllipse(outline);
    } else {
        painter.drawRect(outline);
    }
    painter.restore();
}

}  // namespace

double ContrastOf(const QColor &a, const QColor &b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor OutlineOn(const QColor &background, const QColor &text) {
    for (const double share : {0.5, 0.6, 0.7, 0.8, 0.9})
        if (const QColor mixed = Mixed(background, text, share);
            ContrastOf(mixed, background) >= seenContrast)
            return mixed;
    return text;
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                 const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
        case PE_IndicatorCheckBox:
        case PE_FrameLineEdit:
        case PE_Frame:
            return Outline(*option, option->rect, *painter);
        case PE_IndicatorRadioButton:
            return Outline(*option, option->rect, *painter, Shape::Ellipse);
        default:
            return;
    }
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_SpinBox || control == CC_ComboBox)
        return Outline(*option, option->rect, *painter);
    if (control != CC_Slider)
        return;
    const QRect groove = subControlRect(CC_Slider, option, SC_SliderGroove, widget);
    const QRect handle = subControlRect(CC_Slider, option, SC_SliderHandle, widget);
    const QRect line = groove.width() > groove.height()
                           ? QRect(groove.left(), groove.center().y() - 1, groove.width(), 3)
                           : QRect(groove.center().x() - 1, groove.top(), 3, groove.height());
    painter->save();
    painter->setClipRegion(QRegion(line) - handle);
    Outline(*option, line, *painter);
    painter->restore();
    Outline(*option, handle, *painter);
}

}  // namespace vtr
