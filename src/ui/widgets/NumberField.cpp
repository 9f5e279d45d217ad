#include "NumberField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

#include "UndoKeys.h"

namespace vtr {

namespace {

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool AllDigits(QStringView text) {
    return std::ranges::all_of(text, IsDigit);
}

constexpr int aboveEveryMaximum = 1'000'000;

/// A written number without leading zeros and without zeros at the end of the fraction.
struct Decimal {
    bool negative;
    int whole;
    QStringView fraction;

    bool IsBelowZero() const { return negative && (whole != 0 || !fraction.isEmpty()); }
    bool IsAbove(int maximum) const { return whole > maximum || (whole == maximum && !fraction.isEmpty()); }

    /// The nearest whole number, halves to the even one.
    int Rounded() const {
        const int fromHalf = fraction.compare(u"5");
        const int size = whole + (fromHalf > 0 || (fromHalf == 0 && whole % 2 != 0) ? 1 : 0);
        return negative ? -size : size;
    }
};

/// The number in text, without its fraction when cutsFraction is set.
std::optional<Decimal> ReadDecimal(QStringView text, bool cutsFraction) {
    const bool negative = text.startsWith(u'-');
    const QStringView parts = text.mid(negative || text.startsWith(u'+') ? 1 : 0);
    const qsizetype point = parts.indexOf(u'.');
    const QStringView digits = point < 0 ? parts : parts.first(point);
    QStringView fraction = point < 0 ? QStringView() : parts.mid(point + 1);
    if (digits.isEmpty() || !AllDigits(digits) || !AllDigits(fraction))
        return std::nullopt;
    int whole = 0;
    for (const QChar digit : digits)
        whole = std::min(whole * 10 + (digit.unicode() - u'0'), aboveEveryMaximum);
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    return Decimal{negative, whole, cutsFraction ? QStringView() : fraction};
}

/// True for input that types text. Pasting does not.
bool IsTyping(const QEvent &event) {
    return event.type() == QEvent::InputMethod ||
           (event.type() == QEvent::KeyPress &&
            !static_cast<const QKeyEvent &>(event).matches(QKeySequence::Paste));
}

}  // namespace

NumberField::NumberField(const QString &name, int maximum, QWidget *parent)
    : QSpinBox(parent), maximum_(maximum) {
    setObjectName(QStringLiteral("upd_") + name);
    lineEdit()->installEventFilter(this);
    lineEdit()->setObjectName(QStringLiteral("txt_") + name);
    setRange(0, maximum);
    setValue(0);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSpinBox::valueChanged, this, &NumberField::TellChange);
    // Typed text passes validate() first. Text that a program sets does not.
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
    // The field shows it already, or the user is typing a fraction that rounds to it.
    if (number == value() && (text() == textFromValue(number) || text().contains(u'.'))) {
        told_ = number;
        return;
    }
    const QSignalBlocker blocker(this);
    WidenTo(number);
    setValue(number);
    told_ = number;
}

void NumberField::ShowNothing() {
    ShowRecordValue(0);
    clear();
}

void NumberField::SetZeroText(const QString &text) {
    zeroText_ = text;
    lineEdit()->setText(textFromValue(value()));
}

void NumberField::stepBy(int steps) {
    const QScopedValueRollback typing(typing_, false);
    if (InRange(value()))
        QSpinBox::stepBy(steps);
    else
        setValue(std::clamp(value() + steps, 0, maximum_));
}

QValidator::State NumberField::validate(QString &text, int &position) const {
    if (!InRange(value()) && text == QString::number(value()))
        return QValidator::Acceptable;
    QString bare = WithoutZeroText(text.trimmed());
    if (bare.isEmpty() || bare == QStringLiteral("-") || bare == QStringLiteral("+")) {
        if (!text.isEmpty() && text == zeroText_)
            return QValidator::Acceptable;
        return bare == text || zeroText_.contains(text) ? QValidator::Intermediate : Refuse(text);
    }
    if (bare.startsWith(u'.') && !zeroText_.isEmpty() && text.startsWith(zeroText_))
        bare.prepend(u'0');
    const bool onlyFraction = bare.startsWith(u'.') && (typing_ || MayBeginWithPoint(text));
    const QString written = onlyFraction ? u'0' + bare : bare;
    const std::optional<Decimal> number = ReadDecimal(written, cutsFraction_);
    if (!number || (typing_ && text != text.trimmed()))
        return Refuse(text);
    const bool outside = number->IsBelowZero() || number->IsAbove(maximum_);
    const bool isWhole = AllDigits(bare);
    const bool keepAsTyped = isWhole ? number->whole != 0 || zeroText_.isEmpty() : typing_ && bare[0] != u'+';
    const QString held =
        !outside && keepAsTyped ? bare : textFromValue(std::clamp(number->Rounded(), 0, maximum_));
    if (text != held) {
        text = held;
        position = static_cast<int>(text.size());
    }
    return QValidator::Acceptable;
}

QValidator::State NumberField::Refuse(const QString &text) const {
    Q_EMIT Refused(text.contains(u',')
                       ? QStringLiteral("Write a fraction with a point, not a comma.")
                       : QStringLiteral("Only a number from 0 to %1 fits here.").arg(maximum_));
    return QValidator::Invalid;
}

QString NumberField::textFromValue(int number) const {
    return number == 0 && !zeroText_.isEmpty() ? zeroText_ : QString::number(number);
}

int NumberField::valueFromText(const QString &text) const {
    if (text == QString::number(value()))
        return value();
    const QString written = text.startsWith(u'.') ? u'0' + text : text;
    const std::optional<Decimal> number = ReadDecimal(written, cutsFraction_);
    return number ? std::clamp(number->Rounded(), 0, maximum_) : 0;
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const {
    return InRange(value()) ? QSpinBox::stepEnabled() : StepUpEnabled | StepDownEnabled;
}

/// The spin box hands keys and other input on to its line edit.
bool NumberField::event(QEvent *event) {
    if (IsKeptFromText(*event))
        return true;
    const QScopedValueRollback typing(typing_, typing_ || event->type() == QEvent::InputMethod);
    return QSpinBox::event(event);
}

/// What comes to the line edit itself.
bool NumberField::eventFilter(QObject *watched, QEvent *event) {
    if (watched != lineEdit())
        return QSpinBox::eventFilter(watched, event);
    if (IsKeptFromText(*event))
        return true;
    if (!IsTyping(*event))
        return false;
    const QScopedValueRollback typing(typing_, true);
    lineEdit()->event(event);
    return true;
}

/// Remembers the text that the event may change. True for the keys that always undo and redo edits of the
/// campaign, never of the text.
bool NumberField::IsKeptFromText(QEvent &event) {
    before_ = lineEdit()->text();
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    if (!IsUndoKey(key) && !IsRedoKey(key))
        return false;
    event.ignore();
    return true;
}

void NumberField::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return;
    const QScopedValueRollback typing(typing_, !isEnter && IsTyping(*event));
    QSpinBox::keyPressEvent(event);
}

void NumberField::wheelEvent(QWheelEvent *event) {
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

/// True when text begins with a point because something before the point was deleted.
bool NumberField::MayBeginWithPoint(QStringView text) const {
    if (before_.startsWith(u'.'))
        return true;
    const auto rest = std::ranges::mismatch(text, before_).in1;
    return before_.size() >= text.size() && before_.endsWith(QStringView(rest, text.end()));
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

/// text without letters of the zero text before and after a number.
QString NumberField::WithoutZeroText(const QString &text) const {
    QStringView bare = text;
    while (!bare.isEmpty() && zeroText_.contains(bare.front()))
        bare = bare.mid(1);
    while (!bare.isEmpty() && zeroText_.contains(bare.back()))
        bare.chop(1);
    return bare.toString();
}

}  // namespace vtr
