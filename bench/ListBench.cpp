// Opening the list with all items of every kind, compared with a bare table of the same rows and columns for
// each: a QTableView over texts that stand ready, without sorting, filter or anything around it.

#include <QAbstractTableModel>
#include <QApplication>
#include <QTabBar>
#include <QTableView>
#include <cstdlib>
#include <memory>

#include "Comparison.h"
#include "SampleCampaign.h"
#include "frm_list.h"

namespace {

using namespace vtr;

class ReadyTexts : public QAbstractTableModel {
  public:
    explicit ReadyTexts(const TextRows &rows) {
        for (const std::vector<std::string> &row : rows)
            for (const std::string &text : row)
                texts_ << QString::fromStdString(text);
        columns_ = static_cast<int>(rows.front().size());
    }
    int rowCount(const QModelIndex &parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(texts_.size()) / columns_;
    }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : columns_; }
    QVariant data(const QModelIndex &index, int role) const override {
        return role == Qt::DisplayRole ? texts_[index.row() * columns_ + index.column()] : QVariant();
    }

  private:
    QStringList texts_;
    int columns_;
};

void Paint(QWidget &window) {
    QApplication::processEvents();
    if (window.grab().isNull())
        std::abort();
}

}  // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::unique_ptr<Campaign> campaign = MakeSampleCampaign();

    constexpr std::array<const char *, itemKindTotal> captions{
        "targets", "airfields", "frontline points", "railway lines", "road paths", "rail paths"};
    std::array<TextRows, itemKindTotal> rows;
    frm_list list(*campaign);
    list.show();
    for (std::size_t kind = 0; kind < itemKindTotal; ++kind) {
        list.findChild<QTabBar *>()->setCurrentIndex(static_cast<int>(kind));
        rows[kind] = list.ShownRows();
    }
    list.hide();

    for (std::size_t kind = 0; kind < itemKindTotal; ++kind) {
        const auto openList = [&] {
            frm_list opened(*campaign);
            opened.findChild<QTabBar *>()->setCurrentIndex(static_cast<int>(kind));
            opened.show();
            Paint(opened);
        };
        const auto openBare = [&] {
            ReadyTexts texts(rows[kind]);
            QTableView table;
            table.setModel(&texts);
            table.resize(680, 560);
            table.show();
            Paint(table);
        };
        ReportAtMost(captions[kind], Compare(60, openList, openBare), "a bare table", 2);
    }
}
