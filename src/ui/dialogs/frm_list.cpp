#include "frm_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "Buttons.h"

namespace vtr {

namespace {

struct Kind {
    const char *caption;
    const char *fileName;
};

/// In the order of ItemKind.
constexpr std::array<Kind, itemKindTotal> kinds{
    {{QT_TRANSLATE_NOOP("vtr::frm_list", "&Targets"), "targets.csv"},
     {QT_TRANSLATE_NOOP("vtr::frm_list", "&Airfields"), "airfields.csv"},
     {QT_TRANSLATE_NOOP("vtr::frm_list", "&Frontlines"), "frontlines.csv"},
     {QT_TRANSLATE_NOOP("vtr::frm_list", "&Railways"), "railways.csv"},
     {QT_TRANSLATE_NOOP("vtr::frm_list", "Roa&d Interdiction"), "road-interdiction.csv"},
     {QT_TRANSLATE_NOOP("vtr::frm_list", "Ra&il Interdiction"), "rail-interdiction.csv"}}};

/// Enough for a name, a country or an aircraft.
constexpr int charactersOfTexts = 26;

}  // namespace

frm_list::frm_list(const Campaign &campaign, QWidget *parent)
    : QDialog(parent),
      items_(new ItemModel(campaign, this)),
      shown_(new UsedItems(items_, this)),
      tab_kinds_(new QTabBar),
      txt_filter_(new QLineEdit),
      tbl_items_(new QTableView),
      lbl_items_(new QLabel) {
    setObjectName(QStringLiteral("frm_list"));
    setWindowTitle(tr("List of Items"));
    tab_kinds_->setObjectName(QStringLiteral("tab_kinds"));
    tab_kinds_->setAccessibleName(tr("Kind of items"));
    tab_kinds_->setExpanding(false);
    for (const Kind &kind : kinds)
        tab_kinds_->addTab(tr(kind.caption));
    txt_filter_->setObjectName(QStringLiteral("txt_filter"));
    txt_filter_->setToolTip(
        tr("Only the rows that contain this text somewhere are shown; capitals and small "
           "letters are the same"));
    txt_filter_->setClearButtonEnabled(true);
    auto *const filterLabel = new QLabel(tr("Sho&w only rows with:"));
    filterLabel->setBuddy(txt_filter_);
    BuildTable();
    lbl_items_->setObjectName(QStringLiteral("lbl_items"));
    // However long its text is, the window keeps its width.
    lbl_items_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    QPushButton *const copy = MakeButton(QStringLiteral("cmd_copy"), tr("&Copy"));
    copy->setToolTip(tr("Copy the selected rows, or all that are shown when none is selected"));
    QPushButton *const save = MakeButton(QStringLiteral("cmd_savecsv"), tr("&Save as CSV..."));
    save->setToolTip(tr("Write all rows that are shown to a file for a spreadsheet"));
    QPushButton *const close = MakeButton(QStringLiteral("cmd_close"), tr("C&lose"));
    for (QPushButton *button : {copy, save, close})
        button->setAutoDefault(false);

    auto *const filter = new QHBoxLayout;
    filter->addWidget(filterLabel);
    filter->addWidget(txt_filter_, 1);
    auto *const bottom = new QHBoxLayout;
    bottom->addWidget(lbl_items_, 1);
    bottom->addLayout(ButtonRow({copy, save, close}));
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(tab_kinds_);
    layout->addLayout(filter);
    layout->addWidget(tbl_items_, 1);
    layout->addLayout(bottom);
    resize(680, 560);

    connect(tab_kinds_, &QTabBar::currentChanged, this, [this] {
        if (isVisible())
            ShowKind();
    });
    connect(txt_filter_, &QLineEdit::textChanged, this, [this](const QString &text) {
        shown_->setFilterFixedString(text);
        ShowCount();
    });
    connect(copy, &QPushButton::clicked, this, &frm_list::Copy);
    connect(save, &QPushButton::clicked, this, &frm_list::SaveRequested);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void frm_list::BuildTable() {
    tbl_items_->setObjectName(QStringLiteral("tbl_items"));
    tbl_items_->setAccessibleName(tr("Items"));
    tbl_items_->setToolTip(tr("Click a row, or press Enter on it, to select its item on the map"));
    tbl_items_->setModel(shown_);
    tbl_items_->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    tbl_items_->setSortingEnabled(true);
    tbl_items_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tbl_items_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tbl_items_->setAlternatingRowColors(true);
    tbl_items_->setWordWrap(false);
    tbl_items_->setTabKeyNavigation(false);
    tbl_items_->verticalHeader()->hide();
    tbl_items_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tbl_items_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    tbl_items_->horizontalHeader()->setHighlightSections(false);
    tbl_items_->installEventFilter(this);
    connect(tbl_items_, &QTableView::clicked, this, &frm_list::Choose);
}

void frm_list::ShowBeside(const QWidget &other) {
    if (!isVisible()) {
        const QRect screen = other.screen()->availableGeometry();
        const QRect frame = other.frameGeometry();
        move(std::max(screen.left(), std::min(frame.right() + 1, screen.right() + 1 - width())), frame.top());
    }
    show();
    raise();
    activateWindow();
}

void frm_list::showEvent(QShowEvent *event) {
    // What changed while it was hidden was not followed.
    if (!event->spontaneous())
        ShowKind();
    QDialog::showEvent(event);
}

void frm_list::ShowKind() {
    items_->ShowKind(static_cast<ItemKind>(tab_kinds_->currentIndex()));
    QHeaderView &header = *tbl_items_->horizontalHeader();
    // The table has sorted the new rows by what it is sorted by already.
    if (header.sortIndicatorSection() != 0 || header.sortIndicatorOrder() != Qt::AscendingOrder)
        tbl_items_->sortByColumn(0, Qt::AscendingOrder);
    const int characterWidth = fontMetrics().averageCharWidth();
    for (int column = 0; column < items_->columnCount(); ++column) {
        const bool isText = items_->index(0, column).data(Qt::EditRole).userType() == QMetaType::QString;
        header.resizeSection(column, std::max(header.sectionSizeHint(column),
                                              isText ? charactersOfTexts * characterWidth : 0));
    }
    ShowCount();
}

void frm_list::TablesChanged() {
    if (!isVisible())
        return;
    items_->TablesChanged();
    ShowCount();
}

void frm_list::Say(const QString &text) {
    lbl_items_->setText(text);
}

void frm_list::ShowCount() {
    int total = 0;
    for (int row = 0; row < items_->rowCount(); ++row)
        total += items_->IsUsed(row) ? 1 : 0;
    const int shown = shown_->rowCount();
    const QString rows = total == 1 ? tr("1 row") : tr("%1 rows").arg(total);
    Say(shown == total ? rows : tr("%1 of %2").arg(shown).arg(rows));
}

void frm_list::Choose(const QModelIndex &index) {
    ShowCount();
    Q_EMIT ItemChosen(items_->Kind(), shown_->mapToSource(index).row());
}

bool frm_list::eventFilter(QObject *watched, QEvent *event) {
    if (watched == tbl_items_ && event->type() == QEvent::KeyPress) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.matches(QKeySequence::Copy)) {
            Copy();
            return true;
        }
        if ((key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
            tbl_items_->currentIndex().isValid()) {
            Choose(tbl_items_->currentIndex());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

std::vector<std::string> frm_list::TextsOf(int row) const {
    const int itemsRow = shown_->mapToSource(shown_->index(row, 0)).row();
    std::vector<std::string> texts;
    for (int column = 0; column < items_->columnCount(); ++column)
        texts.push_back(items_->TextAt(itemsRow, column));
    return texts;
}

void frm_list::Copy() const {
    const QItemSelectionModel &selection = *tbl_items_->selectionModel();
    TextRows rows;
    for (int row = 0; row < shown_->rowCount(); ++row)
        if (!selection.hasSelection() || selection.isRowSelected(row))
            rows.push_back(TextsOf(row));
    QApplication::clipboard()->setText(QString::fromStdString(TabSeparated(rows)));
}

std::string frm_list::FileName() const {
    return kinds.at(static_cast<std::size_t>(items_->Kind())).fileName;
}

TextRows frm_list::ShownRows() const {
    TextRows rows(1);
    for (const ItemColumn &column : ItemTableOf(items_->Kind()).columns)
        rows.front().emplace_back(column.caption);
    for (int row = 0; row < shown_->rowCount(); ++row)
        rows.push_back(TextsOf(row));
    return rows;
}

}  // namespace vtr
