#pragma once

#include <QSpinBox>

namespace vtr {

/// A numeric field: a whole number from 0 to a maximum, typed or stepped. Every key keeps the number within
/// the range. The field rounds a fraction, halves to the even number: a pasted one at once, a typed one when
/// the user leaves the field.
class NumberField : public QSpinBox {
    Q_OBJECT

  public:
    /// The field's object name becomes "upd_" + name, that of its line edit "txt_" + name.
    NumberField(const QString &name, int maximum, QWidget *parent = nullptr);

    /// Sets the number as stepping does. Outside the range, keeps the old number and returns false.
    bool SetNumber(int number);
    /// Shows the number of a record without sending a signal. A file may hold a number outside the range. The
    /// field shows it until the user edits it.
    void ShowRecordValue(int number);
    /// Shows an empty text without sending a signal, until a number is shown or set.
    void ShowNothing();
    /// Shows text instead of "0". A digit typed into it replaces it.
    void SetZeroText(const QString &text);
    /// From now on a fraction is cut off instead of rounded.
    void CutFraction() { cutsFraction_ = true; }

    /// The same, and measured only once.
    QSize minimumSizeHint() const override { return sizeHint(); }
    void stepBy(int steps) override;
    /// Changes text to the nearest number of the range, except an empty text and a lone sign.
    QValidator::State validate(QString &text, int &position) const override;

  Q_SIGNALS:
    /// The user or SetNumber changed the number. Unlike valueChanged, not sent for a mere Enter key.
    void NumberChanged(int number);
    /// The field refused what was typed or pasted. why is a sentence for the user.
    void Refused(const QString &why) const;

  protected:
    QString textFromValue(int number) const override;
    int valueFromText(const QString &text) const override;
    StepEnabled stepEnabled() const override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

  private:
    using QSpinBox::setMaximum;
    using QSpinBox::setMinimum;
    using QSpinBox::setRange;
    using QSpinBox::setValue;

    bool InRange(int number) const { return number >= 0 && number <= maximum_; }
    void WidenTo(int number);
    void TellChange(int number);
    QValidator::State Refuse(const QString &text) const;
    QString WithoutZeroText(const QString &text) const;
    bool IsKeptFromText(QEvent &event);
    bool MayBeginWithPoint(QStringView text) const;

    int maximum_;
    int told_ = 0;
    QString zeroText_;
    bool cutsFraction_ = false;
    bool typing_ = false;  ///< the text is being typed, not pasted or set
    QString before_;       ///< the text before the last event
};

}  // namespace vtr
