#pragma once

#include <QSpinBox>

namespace vtr {

/// A numeric field: a whole number from 0 to a maximum, typed or stepped. Typing is held within the range at
/// every key. A fraction is rounded, halves to the even number: a pasted one at once, a typed one when the
/// field is left; until then it stays as it is typed.
class NumberField : public QSpinBox {
    Q_OBJECT

  public:
    /// name goes without its prefix: the field becomes "upd_name" and its line edit "txt_name".
    NumberField(const QString &name, int maximum, QWidget *parent = nullptr);

    /// Sets the number as stepping does. Outside the range it refuses: false, and the old number stays.
    bool SetNumber(int number);
    /// Shows the number that a record holds and tells nobody. One outside the range, which a file may hold,
    /// is shown as it is until the user edits it.
    void ShowRecordValue(int number);
    /// Shows an empty text, and tells nobody, until a number is shown or set.
    void ShowNothing();
    /// Shows text instead of "0". A digit typed into it replaces it.
    void SetZeroText(const QString &text);
    /// From now on a fraction is cut off instead of rounded.
    void CutFraction() { cutsFraction_ = true; }

    void stepBy(int steps) override;
    /// Rewrites text to the nearest number of the range; an empty text and a lone sign are left alone.
    QValidator::State validate(QString &text, int &position) const override;

  Q_SIGNALS:
    /// The user or SetNumber changed the number. Unlike valueChanged it does not come for the Enter key
    /// alone.
    void NumberChanged(int number);
    /// What was typed or pasted cannot be taken; why, in a sentence for the user.
    void Refused(const QString &why) const;

  protected:
    QString textFromValue(int number) const override;
    int valueFromText(const QString &text) const override;
    StepEnabled stepEnabled() const override;
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

    int maximum_;
    int told_ = 0;
    QString zeroText_;
    bool cutsFraction_ = false;
};

}  // namespace vtr
