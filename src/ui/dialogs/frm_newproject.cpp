#include "frm_newproject.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Buttons.h"
#include "DroppedPath.h"
#include "FileChooser.h"
#include "GameText.h"
#include "Paths.h"
#include "ShowMessage.h"
#include "Text.h"

namespace vtr {

namespace {

/// The most that the hint needs: one line on dropping, one on missing files, two for each other hint.
constexpr int hintLines = 8;

bool IsFolder(const QString &path) {
    return !path.isEmpty() && QFileInfo(path).isDir();
}

}  // namespace

frm_newproject::frm_newproject(std::string programFolder, QWidget *parent)
    : QDialog(parent), programFolder_(std::move(programFolder)), name_(new QLineEdit), lbl_hint_(new QLabel) {
    setObjectName(QStringLiteral("frm_newproject"));
    setWindowTitle(QStringLiteral("New Project"));
    setAcceptDrops(true);

    auto *const grid = new QGridLayout;
    auto *const nameLabel = new QLabel(QStringLiteral("PROJECT NAME:"));
    nameLabel->setBuddy(name_);
    name_->setObjectName(QStringLiteral("txt_prjname"));
    name_->setAcceptDrops(false);  // a dropped folder is for the dialog
    grid->addWidget(nameLabel, 0, 0);
    grid->addWidget(name_, 0, 2, 1, 2);
    int line = 0;
    for (const NewProjectRow &row : newProjectRows)
        AddRow(*grid, ++line, row);
    grid->setColumnStretch(2, 1);

    lbl_hint_->setObjectName(QStringLiteral("lbl_hint"));
    lbl_hint_->setWordWrap(true);
    lbl_hint_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lbl_hint_->setMinimumHeight(hintLines * fontMetrics().lineSpacing());
    ShowHint();

    QPushButton *const create = MakeButton(QStringLiteral("cmd_ok"), QStringLiteral("&Create"));
    create->setDefault(true);
    connect(create, &QPushButton::clicked, this, &frm_newproject::CreateFromFields);

    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addWidget(lbl_hint_);
    layout->addStretch();
    layout->addLayout(ButtonRow({create, MakeCancelButton(*this, QStringLiteral("Cancel"))}));
}

void frm_newproject::AddRow(QGridLayout &grid, int line, const NewProjectRow &row) {
    const std::size_t index = row.index;
    auto *const label = new QLabel(QString::fromUtf8(row.caption));
    label->setObjectName(QStringLiteral("lbl_file(%1)").arg(index));
    auto *const field = new QLineEdit;
    field->setObjectName(QStringLiteral("txt_filename(%1)").arg(index));
    field->setToolTip(QStringLiteral("Airfield Code"));
    field->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, [this, index](const QString &text) {
        project_.filenames[index] = text.toStdString();
        ShowHint();
    });
    label->setBuddy(field);
    fields_.at(index) = field;
    QPushButton *const browse =
        MakeButton(QStringLiteral("cmd_browse(%1)").arg(index), QStringLiteral("..."));
    browse->setAccessibleName(QString::fromUtf8(BrowseTitle(index)));
    browse->setAutoDefault(false);
    browse->setFixedWidth(browse->fontMetrics().horizontalAdvance(QStringLiteral(".....")) + 16);
    connect(browse, &QPushButton::clicked, this, [this, index] { Browse(index); });

    grid.addWidget(label, line, 0);
    if (index == mapRow)
        grid.addWidget(new QLabel(QStringLiteral("(OPT)")), line, 1);
    grid.addWidget(field, line, 2);
    grid.addWidget(browse, line, 3);
}

void frm_newproject::Browse(std::size_t index) {
    Pick(index, ChooseFile(this, QFileDialog::AcceptOpen, QString::fromUtf8(BrowseTitle(index)),
                           BrowseFilter(index), lastFolder_));
}

void frm_newproject::Pick(std::size_t index, const std::string &path) {
    if (path.empty())
        return;
    lastFolder_ = FolderOf(path);
    project_.Pick(index, path);
    ShowFields();
}

void frm_newproject::PickFromFolder(const QString &path) {
    lastFolder_ = NativePath(QDir::cleanPath(path) + QLatin1Char('/'));
    project_.PickFromFolder(lastFolder_);
    ShowFields();
}

void frm_newproject::ShowFields() {
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        const QSignalBlocker once(fields_[index]);  // so that the hint is made once, not for each row
        fields_[index]->setText(QString::fromUtf8(project_.filenames[index]));
    }
    ShowHint();
}

void frm_newproject::ShowHint() {
    const RowHints hints = HintsOf(project_);
    lbl_hint_->setText(tr("Drop a folder of game files here, or a file on its row.") + QLatin1Char('\n') +
                       QString::fromUtf8(TextOf(hints)));
    lbl_hint_->setToolTip(QString::fromUtf8(WholeTextOf(hints)));
}

void frm_newproject::Refuse(std::size_t index, const QString &message) {
    ShowMessage(this, QMessageBox::Critical, message, QStringLiteral("New Project"));
    fields_.at(index)->setFocus();
}

void frm_newproject::CreateFromFields() {
    project_.name = name_->text().toStdString();
    if (const auto empty = project_.FirstEmptyRow())
        return Refuse(*empty, QStringLiteral("Please Fill in ALL Fields"));
    if (const auto refusal = project_.FirstRefusal())
        return Refuse(refusal->index, QString::fromUtf8(refusal->message));
    projectPath_ =
        ChooseFile(this, QFileDialog::AcceptSave, QStringLiteral("Save Project As..."), projectFilter);
    if (!projectPath_.empty())
        CreateProject(project_, projectPath_, programFolder_);
    accept();
}

bool frm_newproject::eventFilter(QObject *watched, QEvent *event) {
    const bool dropped = event->type() == QEvent::Drop;
    if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QDialog::eventFilter(watched, event);
    auto *const drag = static_cast<QDropEvent *>(event);
    const QString path = DroppedPath(*drag);
    const auto index =
        static_cast<std::size_t>(std::find(fields_.begin(), fields_.end(), watched) - fields_.begin());
    if (!IsFolder(path) && !RowTakes(index, NativePath(path))) {
        drag->ignore();  // a file for another row, text, a web page
        return true;
    }
    AcceptAsCopy(*drag);
    if (!dropped)
        return true;
    if (!IsFolder(path)) {
        Pick(index, NativePath(path));
    } else if (index != tilesRow) {
        PickFromFolder(path);
    } else {
        lastFolder_ = NativePath(QDir::cleanPath(path) + QLatin1Char('/'));
        project_.PickTilesFolder(lastFolder_);
        ShowFields();
    }
    return true;
}

void frm_newproject::dragEnterEvent(QDragEnterEvent *event) {
    if (IsFolder(DroppedPath(*event)))
        AcceptAsCopy(*event);
}

void frm_newproject::dropEvent(QDropEvent *event) {
    const QString path = DroppedPath(*event);
    if (!IsFolder(path))
        return;
    PickFromFolder(path);
    AcceptAsCopy(*event);
}

}  // namespace vtr
