#pragma once

#include <QGroupBox>

#include "Campaign.h"
#include "PositionFields.h"

class QGridLayout;
class QPushButton;

namespace vtr {

/// A frame of the main window that shows one item of the campaign and edits it. Disabled until it is enabled.
class Panel : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows the current item as the campaign holds it; writes nothing and asks for no redraw.
    virtual void Refresh() = 0;
    /// Selects and shows the first item; true when another one was selected.
    bool SelectFirst();

  Q_SIGNALS:
    /// What the map shows may have changed: it is to be redrawn once.
    void Changed();

  protected:
    Panel(const QString &name, const QString &title, Campaign &campaign, QWidget *parent);

    struct FieldText {
        const char *name;
        const char *caption;  ///< of the label before the field, which names it
        const char *meaning;  ///< for the tooltip and for assistive tools
        const char *unit;     ///< for the tooltip; may be empty
        int maximum;
    };
    /// Puts a label and its field side by side, each over as many columns of the grid. Fields are made in
    /// reading order, which is the order of the Tab key too.
    NumberField *AddField(const FieldText &text, int row, int column, int columns = 1);
    /// A field that says which item the panel shows.
    NumberField *AddSelector(const FieldText &text, int row, int column, int columns = 1);
    QPushButton *MakeButton(const QString &name, const QString &caption, const QString &toolTip);

    QGridLayout &Grid() { return *grid_; }

    Campaign &campaign_;

  private:
    QGridLayout *grid_;
    std::vector<NumberField *> selectors_;
};

/// Asks question with Yes and No; true for Yes.
bool AskYesNo(QWidget *parent, const QString &question);

}  // namespace vtr
