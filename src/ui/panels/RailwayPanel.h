#pragma once

#include <array>

#include "EditCampaign.h"
#include "Panel.h"

class QCheckBox;

namespace vtr {

/// fra_railway: one railway line, and the buttons that disable and enable lines.
class RailwayPanel : public Panel {
    Q_OBJECT

  public:
    RailwayPanel(Session &session, QWidget *parent);

    void Refresh() override;
    /// Shows the rows of the line as the table has them, also where they only mark that it has none: what the
    /// fields showed may be what was taken back.
    void ShowMarkerRows();
    void Select(int line) { line_->SetNumber(line); }
    /// end is 1 or 2.
    PositionFields Position(int end) const;
    /// Places end 2. Then selects the next line when the increment box is checked.
    void PlaceEnd(int x, int y);

  Q_SIGNALS:
    /// end is 1 or 2.
    void PreciseRequested(int end);
    /// caption tells which lines are disabled.
    void DisabledLinesChanged(const QString &caption);

  protected:
    std::string Note() const override;

  private:
    void Build();
    void Bind();
    int Line() const { return session_.selection.railwayLine; }
    QPushButton *AddButton(const QString &name, const QString &caption, const QString &toolTip, int row);
    void MoveLine(void (*set)(Campaign &campaign, int line, RailwayCoordinate coordinate, int number),
                  RailwayCoordinate coordinate, int number, const NumberField *field);
    void DisableLines();
    void EnableAll();

    NumberField *line_ = nullptr;
    std::array<NumberField *, 4> pixels_{};  ///< of x1, x2, y1, y2
    std::array<NumberField *, 4> metres_{};
    QCheckBox *increment_ = nullptr;
    std::array<QPushButton *, 2> precise_{};
    QPushButton *disable_ = nullptr;
    QPushButton *enable_ = nullptr;
};

}  // namespace vtr
