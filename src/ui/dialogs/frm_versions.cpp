#include "frm_versions.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Buttons.h"
#include "DifferenceSentences.h"
#include "ErrorReport.h"
#include "Paths.h"

namespace vtr {

namespace {

QString JoinedNames(const std::vector<const CampaignFile *> &files) {
    QStringList names;
    for (const CampaignFile *file : files)
        names << QString::fromUtf8(file->usualName);
    return names.join(QStringLiteral(", "));
}

/// "21 November 2026, 14:03" where the user is.
QString DateOf(const VersionSet &set) {
    return QLocale::c().toString(QDateTime::fromSecsSinceEpoch(set.time),
                                 QStringLiteral("d MMMM yyyy, HH:mm"));
}

QLabel *MakeCaption(const QString &text, QWidget *buddy) {
    auto *const label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QStringList SentencesOf(const Differences &differences) {
    QStringList lines;
    for (const Difference &difference : differences)
        if (const std::string sentence = SentenceOf(difference); !sentence.empty())
            lines << QString::fromStdString(sentence);
    return lines;
}

/// What is wrong with the kept files.
QStringList WarningsOf(const TakenBack &taken) {
    QStringList lines;
    for (const Error &error : taken.damaged)
        lines << ErrorReport(frm_versions::tr("Reading an earlier version"), error,
                             frm_versions::tr("The tables of this file stay as they are."))
              << QString();
    for (const ShortFile &file : taken.shortFiles)
        lines << frm_versions::tr(
                     "The kept %1 ends too early (%2 of %3 bytes). What is missing counts as "
                     "zero.")
                     .arg(QString::fromStdString(std::string(FileNameOf(file.path))))
                     .arg(file.found)
                     .arg(file.expected)
              << QString();
    return lines;
}

}  // namespace

frm_versions::frm_versions(std::vector<VersionSet> sets, const Campaign &now, QWidget *parent)
    : QDialog(parent),
      sets_(std::move(sets)),
      now_(now),
      lst_versions_(new QListWidget),
      cbo_files_(new QComboBox),
      txt_differences_(new QPlainTextEdit),
      lbl_griddata_(new QLabel(tr("GRIDDATA.DAT is made from the targets at every save: to have it as it "
                                  "was, take back TARGET.DAT and save both."))),
      cmd_takeback_(MakeButton(QStringLiteral("cmd_takeback"), tr("&Take Back"))) {
    setObjectName(QStringLiteral("frm_versions"));
    setWindowTitle(tr("Earlier Versions"));
    lst_versions_->setObjectName(QStringLiteral("lst_versions"));
    lst_versions_->setToolTip(tr("What the files were before the first save of a session, newest first"));
    for (const VersionSet &set : sets_)
        lst_versions_->addItem(DateOf(set) + QLatin1Char('\n') + JoinedNames(set.files));
    lst_versions_->setWordWrap(true);
    lst_versions_->setAlternatingRowColors(true);
    lst_versions_->setFixedWidth(270);
    cbo_files_->setObjectName(QStringLiteral("cbo_versionfiles"));
    cbo_files_->setToolTip(tr("Which files of the set to take back"));
    txt_differences_->setObjectName(QStringLiteral("txt_versiondifferences"));
    txt_differences_->setReadOnly(true);
    txt_differences_->setTabChangesFocus(true);
    lbl_griddata_->setObjectName(QStringLiteral("lbl_griddata"));
    lbl_griddata_->setWordWrap(true);

    auto *const left = new QVBoxLayout;
    left->addWidget(MakeCaption(tr("&Kept before a save:"), lst_versions_));
    left->addWidget(lst_versions_);
    auto *const choice = new QHBoxLayout;
    choice->addWidget(MakeCaption(tr("&Files:"), cbo_files_));
    choice->addWidget(cbo_files_, 1);
    auto *const right = new QVBoxLayout;
    right->addLayout(choice);
    right->addWidget(MakeCaption(tr("Taking them &back changes:"), txt_differences_));
    right->addWidget(txt_differences_);
    right->addWidget(lbl_griddata_);
    auto *const columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right, 1);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    auto *const note = new QLabel(tr("Only what is in the editor changes. Save the files to write them."));
    layout->addWidget(note);
    QPushButton *const close = MakeButton(QStringLiteral("cmd_close"), tr("&Close"));
    layout->addLayout(ButtonRow({cmd_takeback_, close}));
    resize(780, 460);

    connect(lst_versions_, &QListWidget::currentRowChanged, this, &frm_versions::ShowFiles);
    connect(cbo_files_, &QComboBox::currentIndexChanged, this, &frm_versions::ShowDifferences);
    connect(cmd_takeback_, &QPushButton::clicked, this, &QDialog::accept);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    lst_versions_->setCurrentRow(0);
    if (sets_.empty())
        ShowDifferences();
}

const VersionSet *frm_versions::SelectedSet() const {
    const int row = lst_versions_->currentRow();
    return row < 0 ? nullptr : &sets_.at(static_cast<std::size_t>(row));
}

QString frm_versions::ChosenFiles() const {
    return JoinedNames(FilesChosen());
}

std::vector<const CampaignFile *> frm_versions::FilesChosen() const {
    const VersionSet *const set = SelectedSet();
    const int index = cbo_files_->currentIndex();
    if (set == nullptr || index <= 0)
        return set == nullptr ? std::vector<const CampaignFile *>() : set->files;
    return {set->files.at(static_cast<std::size_t>(index) - 1)};
}

void frm_versions::ShowFiles() {
    QStringList choices{tr("All files of the set")};
    for (const CampaignFile *file : SelectedSet()->files)
        choices << QString::fromUtf8(file->usualName);
    {
        const QSignalBlocker blocker(cbo_files_);
        cbo_files_->clear();
        cbo_files_->addItems(choices);
    }
    ShowDifferences();
}

void frm_versions::ShowDifferences() {
    chosen_.clear();
    QStringList lines;
    bool hasGrid = false;
    if (const VersionSet *const set = SelectedSet(); set == nullptr) {
        lines << tr(
            "Nothing has been kept of this project yet. The first save of a file in each session "
            "keeps what the file was before.");
    } else {
        const std::vector<const CampaignFile *> files = FilesChosen();
        const TakenBack taken = ReadVersions(*set, files, now_);
        chosen_ = DifferencesOf(now_, *taken.campaign);
        hasGrid = std::ranges::any_of(files, [](const CampaignFile *file) { return file->read == nullptr; });
        lines << WarningsOf(taken);
        if (chosen_.empty())
            lines << tr("Nothing: the tables in the editor are the same.");
        else if (const std::string summary = SummaryOf(chosen_); !summary.empty())
            lines << QString::fromStdString(summary) + QLatin1Char(':') << QString();
        lines << SentencesOf(chosen_);
    }
    txt_differences_->setPlainText(lines.join(QLatin1Char('\n')));
    lbl_griddata_->setVisible(hasGrid);
    cmd_takeback_->setEnabled(!chosen_.empty());
}

}  // namespace vtr
