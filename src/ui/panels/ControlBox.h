#pragma once

#include "Panel.h"

class QLabel;

namespace vtr {

/// fra_control: which frontline, railway line and paths the map shows, and which lines are disabled.
class ControlBox : public Panel {
    Q_OBJECT

  public:
    ControlBox(Session &session, QWidget *parent);

    NumberField *upd_viewfrontline;
    NumberField *upd_view_railway;
    NumberField *upd_view_railint;
    NumberField *upd_view_roadint;

    /// Shows the session's choices and which railway lines are disabled.
    void Refresh() override;
    void ShowDisabledLines(const QString &caption);

  Q_SIGNALS:
    void ViewFrontlineChanged(int slot);
    void ViewRailwayChanged(int line);  ///< 0: all

  protected:
    std::string Note() const override { return {}; }

  private:
    NumberField *AddViewSelector(const FieldText &text, const QString &toolTip, int row);

    QLabel *disabledLines_;
};

}  // namespace vtr
