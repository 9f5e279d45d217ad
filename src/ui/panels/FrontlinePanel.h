#pragma once

#include "Panel.h"

class QCheckBox;

namespace vtr {

/// fra_frontline: one point of one frontline slot.
class FrontlinePanel : public Panel {
    Q_OBJECT

  public:
    FrontlinePanel(Campaign &campaign, QWidget *parent);

    void Refresh() override;
    int Slot() const { return slot_->value(); }
    int Point() const { return point_->value(); }
    PositionFields Position() const { return {x_, y_}; }

  private:
    void Build();
    void Bind();
    void CopyIntoAllSlots();

    NumberField *slot_ = nullptr;
    NumberField *point_ = nullptr;
    NumberField *x_ = nullptr;
    NumberField *y_ = nullptr;
    QCheckBox *onMap_ = nullptr;
    QPushButton *copy_ = nullptr;
};

}  // namespace vtr
