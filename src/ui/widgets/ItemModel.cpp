#include "ItemModel.h"

#include "Arithmetic.h"
#include "Text.h"

namespace vtr {

namespace {

QString Shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Metres as the panels show them, and only the beginning of a very long name.
QString ShownCell(const ItemCell &cell) {
    if (const auto *const metres = std::get_if<double>(&cell))
        return QString::number(RoundToInt32(*metres));
    return Shown(Shortened(TextOf(cell)));
}

struct SortValue {
    QVariant operator()(std::monostate /*nothing*/) const { return {}; }
    QVariant operator()(int number) const { return number; }
    QVariant operator()(double number) const { return number; }
    QVariant operator()(const std::string &text) const { return Shown(text); }
};

}  // namespace

ItemModel::ItemModel(const Campaign &campaign, QObject *parent)
    : QAbstractTableModel(parent), campaign_(campaign) {}

void ItemModel::ShowKind(ItemKind kind) {
    beginResetModel();
    kind_ = kind;
    endResetModel();
}

void ItemModel::TablesChanged() {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

bool ItemModel::IsUsed(int row) const {
    return ItemTableOf(kind_).isUsed(campaign_, static_cast<std::size_t>(row));
}

std::string ItemModel::TextAt(int row, int column) const {
    return TextOf(CellAt(row, column));
}

int ItemModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ItemTableOf(kind_).rowTotal);
}

int ItemModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ItemTableOf(kind_).columns.size());
}

QVariant ItemModel::data(const QModelIndex &index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return ShownCell(CellAt(index.row(), index.column()));
        case Qt::EditRole:
            return std::visit(SortValue(), CellAt(index.row(), index.column()));
        case Qt::TextAlignmentRole: {
            const bool isText = std::holds_alternative<std::string>(CellAt(index.row(), index.column()));
            return QVariant::fromValue((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        }
        default:
            return {};
    }
}

QVariant ItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return Shown(ItemTableOf(kind_).columns[static_cast<std::size_t>(section)].caption);
}

ItemCell ItemModel::CellAt(int row, int column) const {
    const ItemColumn &of = ItemTableOf(kind_).columns[static_cast<std::size_t>(column)];
    return of.cell(campaign_, static_cast<std::size_t>(row));
}

UsedItems::UsedItems(ItemModel *items, QObject *parent) : QSortFilterProxyModel(parent), items_(*items) {
    setSourceModel(items);
    setSortRole(Qt::EditRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    setFilterKeyColumn(-1);
}

bool UsedItems::filterAcceptsRow(int row, const QModelIndex &parent) const {
    return items_.IsUsed(row) && QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

}  // namespace vtr
