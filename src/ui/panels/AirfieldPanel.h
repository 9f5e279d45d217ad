#pragma once

#include <array>
#include <functional>
#include <optional>

#include "Panel.h"

class QComboBox;
class QLineEdit;

namespace vtr {

/// fra_airfield: the airfield record that the selected target refers to.
class AirfieldPanel : public Panel {
    Q_OBJECT

  public:
    AirfieldPanel(Campaign &campaign, QWidget *parent);

    /// Shows the record of that index and lets it be edited. Nothing, or an index that no record has, only
    /// disables the panel, the latter with a tooltip that says why.
    void ShowAirfield(std::optional<int> airfield);
    void Refresh() override;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void Build();
    void Bind();
    /// widestLetters is the room for captions, in letters as wide as an X.
    QComboBox *MakeCombo(const QString &name, const QString &meaning, int widestLetters);
    void BindCombo(QComboBox *combo, std::function<void(int entry)> store);

    std::optional<int> airfield_;  ///< the record being edited
    QLineEdit *code_ = nullptr;
    NumberField *orientation_ = nullptr;
    QComboBox *country_ = nullptr;
    std::array<QComboBox *, 4> models_{};
    std::array<QComboBox *, 4> aircraft_{};
};

}  // namespace vtr
