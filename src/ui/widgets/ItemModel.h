#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include "ItemTable.h"

namespace vtr {

/// The campaign's items of one kind, a row for each row of their table. What it is sorted by is in
/// Qt::EditRole.
class ItemModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit ItemModel(const Campaign &campaign, QObject *parent = nullptr);

    void ShowKind(ItemKind kind);
    ItemKind Kind() const { return kind_; }
    /// The campaign has changed: all that is shown of it may be different.
    void TablesChanged();
    bool IsUsed(int row) const;
    std::string TextAt(int row, int column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  private:
    ItemCell CellAt(int row, int column) const;

    const Campaign &campaign_;
    ItemKind kind_ = ItemKind::Target;
};

/// The rows of an ItemModel with an item, as far as one of their cells contains the text of the filter.
class UsedItems : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    explicit UsedItems(ItemModel *items, QObject *parent = nullptr);

  protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

  private:
    const ItemModel &items_;
};

}  // namespace vtr
