#pragma once

#include <QComboBox>

namespace vtr {

/// A list of captions to choose one from. The mouse wheel acts on it only while it has the focus: one turned
/// in passing would change the choice unnoticed.
class ChoiceField : public QComboBox {
    Q_OBJECT

  public:
    /// letters is the room for captions, in letters as wide as an X.
    ChoiceField(const QString &name, int letters, QWidget *parent = nullptr);

    /// Shows that entry and tells nobody; none for -1 and for one that the list does not have.
    void ShowEntry(int entry);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void wheelEvent(QWheelEvent *event) override;

  private:
    const int letters_;
};

}  // namespace vtr
