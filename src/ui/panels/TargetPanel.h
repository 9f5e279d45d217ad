#pragma once

#include <QTimer>
#include <optional>

#include "Panel.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace vtr {

/// fra_target: the selected target without its airfield.
class TargetPanel : public Panel {
    Q_OBJECT

  public:
    TargetPanel(Session &session, QWidget *parent);

    void Refresh() override;
    void Select(int target) { code_->SetNumber(target); }
    /// The selected target has a new number. The other fields show it already.
    void Renumber(int target);
    PositionFields Position() const { return {x_, y_, xMetres_, yMetres_}; }
    /// The targets may have changed: tells soon whether all of them fit into the grid data file.
    void TargetsChanged() { gridTimer_.start(); }

  Q_SIGNALS:
    /// The airfield number of the selected target, nothing when it is no airfield.
    void AirfieldShown(std::optional<int> airfield);
    void FindRequested();
    void PreciseRequested();
    void TileRequested();
    void ReorderRequested();
    void StatusMessage(const QString &text);

  protected:
    std::string Note() const override;

  private:
    void Build();
    void Bind();
    int Target() const { return session_.selection.target; }
    void StoreName();
    void StoreIsAirfield();
    void TellAirfield();
    void ShowGrid();

    NumberField *code_ = nullptr;
    NumberField *x_ = nullptr;
    NumberField *y_ = nullptr;
    NumberField *xMetres_ = nullptr;
    NumberField *yMetres_ = nullptr;
    NumberField *count_ = nullptr;
    QLineEdit *name_ = nullptr;
    QCheckBox *isAirfield_ = nullptr;
    QPushButton *find_ = nullptr;
    QPushButton *precise_ = nullptr;
    QPushButton *tile_ = nullptr;
    QPushButton *reorder_ = nullptr;
    QLabel *gridFit_ = nullptr;
    QTimer gridTimer_{this};
    std::optional<int> misfit_;  ///< the target that finds no place in the grid
};

}  // namespace vtr
