#pragma once

#include <QGroupBox>

#include "PositionFields.h"
#include "Session.h"

class QGridLayout;
class QPushButton;

namespace vtr {

/// A frame of the main window that shows one item of the campaign and edits it. Disabled until it is enabled.
class Panel : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows the current item as the campaign holds it; writes nothing and asks for no redraw.
    virtual void Refresh() = 0;
    /// Shows the item that the session selects, its number included.
    void ShowSelection();

  Q_SIGNALS:
    /// What the map shows may have changed: it is to be redrawn once.
    void Changed();

  protected:
    Panel(const QString &name, const QString &title, Session &session, QWidget *parent);

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
    /// A field that selects the item that the panel shows: its number is written to selected.
    NumberField *AddSelector(const FieldText &text, int &selected, int row, int column, int columns = 1);
    QPushButton *MakeButton(const QString &name, const QString &caption, const QString &toolTip);

    QGridLayout &Grid() { return *grid_; }

    Session &session_;
    const Campaign &campaign_;

  private:
    QGridLayout *grid_;
    std::vector<std::pair<NumberField *, const int *>> selectors_;
};

/// Asks question with Yes and No, which Enter presses; true for Yes.
bool AskYesNo(QWidget *parent, const QString &question);

}  // namespace vtr
