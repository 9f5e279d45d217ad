#include "NumberField.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

namespace vtr {

namespace {

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool AllDigits(QStringView text) {
    return std::ranges::all_of(text, IsDigit);
}

constexpr int aboveEveryMaximum = 1'000'000;

/// Whether number and the digits behind its point round up to the next number; halves go to the even one.
bool RoundsUp(int number, QStringView fraction) {
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    const int fromHalf = fraction.compare(u"5");
    return fromHalf > 0 || (fromHalf == 0 && number % 2 != 0);
}

/// The number that text holds, its fraction cut off or rounded.
std::optional<int> WholeNumber(QStringView text, bool cutsFraction) {
    const bool negative = text.startsWith(u'-');
    const QStringView parts = text.mid(negative ? 1 : 0);
    const qsizetype point = parts.indexOf(u'.');
    const QStringView digits = point < 0 ? parts : parts.first(point);
    const QStringView fraction = point < 0 ? QStringView() : parts.mid(point + 1);
    if (digits.isEmpty() || !AllDigits(digits) || !AllDigits(fraction))
        return std::nullopt;
    int number = 0;
    for (const QChar digit : digits)
        number = std::min(number * 10 + (digit.unicode() - u'0'), aboveEveryMaximum);
    if (!cutsFraction && RoundsUp(number, fraction))
        ++number;
    return negative ? -number : number;
}

}  // namespace

NumberField::NumberField(const QString &name, int maximum, QWidget *parent)
    : QSpinBox(parent), maximum_(maximum) {
    setObjectName(QStringLiteral("upd_") + name);
    lineEdit()->setObjectName(QStringLiteral("txt_") + name);
    setRange(0, maximum);
    setValue(0);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSpinBox::valueChanged, this, &NumberField::TellChange);
    // What is typed passes validate() first; what a program sets as text does not.
    connect(lineEdit(), &QLineEdit::textChanged, this, [this](QString text) {
        int position = 0;
        if (validate(text, position) == QValidator::Invalid)
            lineEdit()->setText(textFromValue(value()));
    });
}

bool NumberField::SetNumber(int number) {
    if (!InRange(number))
        return false;
    setValue(number);
    return true;
}

void NumberField::ShowRecordValue(int number) {
    const QSignalBlocker blocker(this);
    WidenTo(number);
    setValue(number);
    told_ = number;
}

void NumberField::SetZeroText(const QString &text) {
    zeroText_ = text;
    lineEdit()->setText(textFromValue(value()));
}

void NumberField::stepBy(int steps) {
    if (InRange(value()))
        QSpinBox::stepBy(steps);
    else
        setValue(std::clamp(value() + steps, 0, maximum_));
}

QValidator::State NumberField::validate(QString &text, int &position) const {
    if (!InRange(value()) && text == QString::number(value()))
        return QValidator::Acceptable;
    const QString bare = WithoutZeroText(text);
    if (bare.isEmpty() || bare == QStringLiteral("-")) {
        if (!text.isEmpty() && text == zeroText_)
            return QValidator::Acceptable;
        return bare == text || zeroText_.contains(text) ? QValidator::Intermediate : QValidator::Invalid;
    }
    const std::optional<int> number = WholeNumber(bare, cutsFraction_);
    if (!number)
        return QValidator::Invalid;
    const int held = std::clamp(*number, 0, maximum_);
    const bool keepAsTyped = held == *number && AllDigits(text) && (held != 0 || zeroText_.isEmpty());
    if (!keepAsTyped) {
        text = textFromValue(held);
        position = static_cast<int>(text.size());
    }
    return QValidator::Acceptable;
}

QString NumberField::textFromValue(int number) const {
    return number == 0 && !zeroText_.isEmpty() ? zeroText_ : QString::number(number);
}

int NumberField::valueFromText(const QString &text) const {
    if (text == QString::number(value()))
        return value();
    return std::clamp(WholeNumber(WithoutZeroText(text), cutsFraction_).value_or(0), 0, maximum_);
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const {
    return InRange(value()) ? QSpinBox::stepEnabled() : StepUpEnabled | StepDownEnabled;
}

void NumberField::wheelEvent(QWheelEvent *event) {
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

/// Makes the spin box's own range just wide enough for number.
void NumberField::WidenTo(int number) {
    const int low = std::min(number, 0);
    const int high = std::max(number, maximum_);
    if (low != minimum() || high != maximum())
        setRange(low, high);
}

void NumberField::TellChange(int number) {
    if (number == told_)
        return;
    told_ = number;
    WidenTo(number);
    Q_EMIT NumberChanged(number);
}

/// text without the letters of the zero text, or what is left of them, before and after a number.
QString NumberField::WithoutZeroText(const QString &text) const {
    QStringView bare = text;
    while (!bare.isEmpty() && zeroText_.contains(bare.front()))
        bare = bare.mid(1);
    while (!bare.isEmpty() && zeroText_.contains(bare.back()))
        bare.chop(1);
    return bare.toString();
}

}  // namespace vtr
