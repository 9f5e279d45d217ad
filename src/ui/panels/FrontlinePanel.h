#pragma once

#include "Panel.h"

class QCheckBox;

namespace vtr {

/// fra_frontline: one point of one frontline slot.
class FrontlinePanel : public Panel {
    Q_OBJECT

  public:
    FrontlinePanel(Session &session, QWidget *parent);

    void Refresh() override;
    PositionFields Position() const { return {x_, y_}; }

  Q_SIGNALS:
    void StatusMessage(const QString &text);

  protected:
    std::string Note() const override;

  private:
    void Build();
    void Bind();
    int Slot() const { return session_.selection.frontline; }
    int Point() const { return session_.selection.frontlinePoint; }
    /// "Point 5 of Frontline 3"
    std::string ShownPoint() const;
    TableRows ShownRow() const;
    void CopyIntoAllSlots();
    void SelectFreePoint();

    NumberField *slot_ = nullptr;
    NumberField *point_ = nullptr;
    NumberField *x_ = nullptr;
    NumberField *y_ = nullptr;
    QCheckBox *onMap_ = nullptr;
    QPushButton *copy_ = nullptr;
    QPushButton *next_ = nullptr;
};

}  // namespace vtr
