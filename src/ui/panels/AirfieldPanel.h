#pragma once

#include <array>
#include <functional>
#include <optional>

#include "Panel.h"

class QLineEdit;

namespace vtr {

class ChoiceField;

/// fra_airfield: the airfield record that the selected target refers to.
class AirfieldPanel : public Panel {
    Q_OBJECT

  public:
    AirfieldPanel(Session &session, QWidget *parent);

    /// Shows the record of that index for editing. Without an index, or without a record of that index, the
    /// panel is empty and disabled. The tooltip of a disabled panel and its fields says why.
    void ShowAirfield(std::optional<int> airfield);
    void Refresh() override;

  protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    std::string Note() const override;

  private:
    void Build();
    void Bind();
    void ShowToolTip();
    void ShowNoRecord();
    ChoiceField *MakeList(const QString &name, const QString &meaning, int letters);
    void BindList(ChoiceField *list, const std::string &what,
                  std::function<void(Campaign &campaign, int entry)> set);
    /// Edits the shown record: "Change WHAT of Airfield 44".
    void Store(const std::string &what, const std::function<void(Campaign &campaign)> &set,
               const std::string &field = {});

    std::optional<int> airfield_;  ///< the record being edited
    std::optional<int> missing_;   ///< the target's airfield number when no record has it

    /// What the tooltip depends on.
    struct ToolTipState {
        std::optional<int> airfield;
        std::optional<int> missing;
        bool isLoaded = false;
        bool targetFrameEnabled = false;
        bool isEnabled = false;

        bool operator==(const ToolTipState &) const = default;
    };
    std::optional<ToolTipState> shownToolTip_;

    QLineEdit *code_ = nullptr;
    NumberField *orientation_ = nullptr;
    ChoiceField *country_ = nullptr;
    std::array<ChoiceField *, 4> models_{};
    std::array<ChoiceField *, 4> aircraft_{};
};

}  // namespace vtr
