#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

#include "ItemModel.h"
#include "SeparatedValues.h"

namespace vtr {

/// Lists the campaign's items in a table for each kind, beside the main window. It changes nothing itself: it
/// asks for what is chosen in it.
class frm_list : public QDialog {
    Q_OBJECT

  public:
    explicit frm_list(const Campaign &campaign, QWidget *parent = nullptr);

    /// Shows the window, when it is hidden to the right of the other as far as the screen has room.
    void ShowBeside(const QWidget &other);
    /// The campaign has changed.
    void TablesChanged();
    /// Says text in the line below the table, until the table changes.
    void Say(const QString &text);

    /// The usual name of a file with what the table shows: "targets.csv".
    std::string FileName() const;
    /// The captions of the columns and the rows that the table shows, in its order.
    TextRows ShownRows() const;

  Q_SIGNALS:
    /// Show the item of that row of the kind's table on the map.
    void ItemChosen(ItemKind kind, int row);
    void SaveRequested();

  protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void BuildTable();
    void ShowKind();
    void ShowCount();
    void Choose(const QModelIndex &index);
    void Copy() const;
    /// The texts of those rows of the table.
    std::vector<std::string> TextsOf(int row) const;

    ItemModel *items_;
    UsedItems *shown_;
    QTabBar *tab_kinds_;
    QLineEdit *txt_filter_;
    QTableView *tbl_items_;
    QLabel *lbl_items_;
};

}  // namespace vtr
