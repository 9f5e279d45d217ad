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

/// A line edit that knows its previous text, and whether the new one is typed or is pasted or set.
class TypedEdit : public QLineEdit {
  public:
    bool IsTyping() const { return typing_; }
    /// True when text begins with a point because something before the point was deleted.
    bool MayBeginWithPoint(QStringView text) const {
        if (before_.startsWith(u'.'))
            return true;
        const auto rest = std::ranges::mismatch(text, before_).in1;
        return before_.size() >= text.size() && before_.endsWith(QStringView(rest, text.end()));
    }

    bool event(QEvent *event) override {
        before_ = text();
        // These keys always undo and redo edits of the campaign, never of the text.
        const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
        if (isKey) {
            const auto &key = *static_cast<QKeyEvent *>(event);
            if (IsUndoKey(key) || IsRedoKey(key)) {
                event->ignore();
                return true;
            }
        }
        return QLineEdit::event(event);
    }

  protected:
    void keyPressEvent(QKeyEvent *event) override {
        const QScopedValueRollback typing(typing_, !event->matches(QKeySequence::Paste));
        QLineEdit::keyPressEvent(event);
    }
    void inputMethodEvent(QInputMethodEvent *event) override {
        const QScopedValueRollback typing(typing_, true);
        QLineEdit::inputMethodEvent(event);
    }

  private:
    bool typing_ = false;
    QString before_;
};

}  // namespace

NumberField::NumberField(const QString &name, int maximum, QWidget *parent)
    : QSpinBox(parent), maximum_(maximum) {
    setObjectName(QStringLiteral("upd_") + name);
    setLineEdit(new TypedEdit);
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
    const auto *const edit = static_cast<const TypedEdit *>(lineEdit());
    const bool typing = edit->IsTyping();
    const bool onlyFraction = bare.startsWith(u'.') && (typing || edit->MayBeginWithPoint(text));
    const QString written = onlyFraction ? u'0' + bare : bare;
    const std::optional<Decimal> number = ReadDecimal(written, cutsFraction_);
    if (!number || (typing && text != text.trimmed()))
        return Refuse(text);
    const bool outside = number->IsBelowZero() || number->IsAbove(maximum_);
    const bool isWhole = AllDigits(bare);
    const bool keepAsTyped = isWhole ? number->whole != 0 || zeroText_.isEmpty() : typing && bare[0] != u'+';
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
