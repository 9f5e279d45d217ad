#pragma once

#include <QGroupBox>

#include "PositionFields.h"
#include "Session.h"

class QGridLayout;
class QHBoxLayout;
class QPushButton;

namespace vtr {

class QuietLine;

/// A frame of the main window that shows and edits one item of the campaign. Disabled at first.
class Panel : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows the current item as the campaign holds it. Changes no table and asks for no redraw.
    virtual void Refresh() = 0;
    /// Shows the item that the session selects, its number included.
    void ShowSelection();
    /// Shows what there is to say of the current item now.
    void ShowNote();

  Q_SIGNALS:
    /// The panel may show another item.
    void ItemShown();
    /// What the map shows may have changed: redraw it once.
    void Changed();

  protected:
    Panel(const QString &name, const QString &title, Session &session, QWidget *parent);

    struct FieldText {
        const char *name;
        const char *caption;  ///< of the label before the field
        const char *meaning;  ///< for the tooltip and for assistive tools
        const char *unit;     ///< for the tooltip; may be empty
        int maximum;
    };
    /// Places a label and its field side by side, each over that many columns of the grid. Add the fields in
    /// reading order: the Tab key follows it.
    NumberField *AddField(const FieldText &text, int row, int column, int columns = 1);
    /// Adds a field that selects the item to show. It writes its number to selected.
    NumberField *AddSelector(const FieldText &text, int &selected, int row, int column, int columns = 1);
    QPushButton *MakeButton(const QString &name, const QString &caption, const QString &toolTip);

    QGridLayout &Grid() { return *grid_; }
    /// The row beside the panel's title, where there is room for a word about the item.
    QHBoxLayout &TitleRow();
    /// Makes the line that shows the note; the caller places it. One of a single line goes into the title
    /// row.
    QuietLine *MakeNote(const char *name, int lines, const QString &widest = {});
    /// What there is to say of the current item (UTF-8).
    virtual std::string Note() const = 0;

    void resizeEvent(QResizeEvent *event) override;

    Session &session_;
    const Campaign &campaign_;

  private:
    QGridLayout *grid_;
    QWidget *titleRow_ = nullptr;
    QuietLine *note_ = nullptr;
    std::vector<std::pair<NumberField *, const int *>> selectors_;
};

/// Asks question with the buttons Yes and No. No is the default. Returns true for Yes.
bool AskYesNo(QWidget *parent, const QString &question);

}  // namespace vtr
