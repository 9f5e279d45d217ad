#pragma once

#include <QComboBox>

namespace vtr {

/// A list of captions to choose one from. The mouse wheel changes the choice only while the list has the
/// focus, so that nobody changes it by accident.
class ChoiceField : public QComboBox {
    Q_OBJECT

  public:
    /// letters is the width of the captions, counted in letters X.
    ChoiceField(const QString &name, int letters, QWidget *parent = nullptr);

    /// Shows that entry without sending a signal. Shows none when the list has no such entry, as for -1.
    void ShowEntry(int entry);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void wheelEvent(QWheelEvent *event) override;

  private:
    const int letters_;
};

}  // namespace vtr
