#include "frm_save.h"

#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Buttons.h"
#include "GameText.h"
#include "Text.h"

namespace vtr {

namespace {

/// Wide enough for a usual folder; a longer text goes on in the next line.
constexpr int textWidth = 340;

constexpr int markSize = 12;

/// A dot beside the files that hold less than the editor does.
QPixmap EditedMark(qreal ratio) {
    QPixmap mark(QSize(markSize, markSize) * ratio);
    mark.setDevicePixelRatio(ratio);
    mark.fill(Qt::transparent);
    QPainter painter(&mark);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(200, 90, 0));
    painter.drawEllipse(2, 2, markSize - 4, markSize - 4);
    return mark;
}

QLabel *MakeLabel(const QString &name, bool wraps) {
    auto *const label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(wraps);
    if (wraps)
        label->setFixedWidth(textWidth);
    return label;
}

QString ToolTipOf(std::size_t box) {
    if (box < firstUnwrittenBox)
        return QStringLiteral("Write this file where the project was loaded from");
    const bool isRead = SaveBoxCaption(box).ends_with("WPT.DAT");
    return isRead ? QStringLiteral("The editor shows the paths of this file but never writes it")
                  : QStringLiteral("The editor neither reads nor writes this file");
}

/// What a save does with the file of a box.
QString NoteOf(const SaveBoxFile &file, std::size_t box) {
    if (file.name.empty())
        return QStringLiteral("not part of this project");
    if (box >= firstUnwrittenBox)
        return QStringLiteral("never written");
    const QString shownName = QString::fromStdString(Shortened(file.name, 40));
    if (!file.objection.empty())
        return QStringLiteral("%1: never written, it %2")
            .arg(shownName, QString::fromStdString(file.objection));
    if (!file.linkedTo.empty())
        return QStringLiteral("%1 leads out of the folder").arg(shownName);
    return file.name == SaveBoxCaption(box) ? QString() : shownName;
}

}  // namespace

frm_save::frm_save(Save save, QWidget *parent)
    : QDialog(parent),
      save_(std::move(save)),
      project_(MakeLabel(QStringLiteral("lbl_project"), true)),
      folder_(MakeLabel(QStringLiteral("lbl_folder"), true)),
      message_(MakeLabel(QStringLiteral("lbl_message"), true)),
      all_(new QCheckBox(QStringLiteral("SAVE ALL"))) {
    setObjectName(QStringLiteral("frm_save"));
    setWindowTitle(QStringLiteral("Save Files"));
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(project_);
    layout->addWidget(folder_);
    auto *const boxes = new QGridLayout;
    boxes->setColumnStretch(2, 1);
    boxes->setHorizontalSpacing(12);
    layout->addLayout(boxes);
    for (std::size_t index = 0; index < saveBoxTotal; ++index) {
        const std::string_view caption = SaveBoxCaption(index);
        if (caption.empty())
            continue;
        auto *const check = new QCheckBox(QString::fromUtf8(caption));
        check->setObjectName(QStringLiteral("chk_save(%1)").arg(index));
        check->setToolTip(ToolTipOf(index));
        boxes_[index] = check;
        notes_[index] = MakeLabel(QStringLiteral("lbl_note(%1)").arg(index), false);
        boxes->addWidget(check, static_cast<int>(index), 0);
        marks_[index] = MakeLabel(QStringLiteral("lbl_edited(%1)").arg(index), false);
        marks_[index]->setFixedWidth(markSize);
        boxes->addWidget(marks_[index], static_cast<int>(index), 1);
        boxes->addWidget(notes_[index], static_cast<int>(index), 2);
    }
    auto *const line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line);

    all_->setObjectName(QStringLiteral("chk_saveall"));
    all_->setToolTip(QStringLiteral("Tick every file"));
    layout->addWidget(all_);
    connect(all_, &QCheckBox::clicked, this, [this] {
        for (QCheckBox *check : boxes_)
            if (check != nullptr)
                check->setChecked(true);
    });
    layout->addWidget(message_);

    QPushButton *const saveButton = MakeButton(QStringLiteral("cmd_save"), QStringLiteral("&Save"));
    saveButton->setDefault(true);
    connect(saveButton, &QPushButton::clicked, this, &frm_save::SaveTicked);
    QPushButton *const closeButton = MakeButton(QStringLiteral("cmd_close"), QStringLiteral("&Cancel"));
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
    layout->addSpacing(8);
    layout->addLayout(ButtonRow({saveButton, closeButton}));
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowProject({});
    Say({});
}

void frm_save::ShowProject(const ProjectPaths &paths) {
    project_->setText(ShownProjectName(paths.Name));
    folder_->setText(QString::fromStdString(Shortened(paths.ProjectDir)));
    folder_->setToolTip(QString::fromStdString(Shortened(paths.ProjectDir, longestShownPath)));
    for (std::size_t index = 0; index < saveBoxTotal; ++index) {
        if (boxes_[index] == nullptr)
            continue;
        projectNotes_[index] = NoteOf(FileOfSaveBox(paths, index), index);
    }
    MarkEdited({});
}

void frm_save::MarkEdited(const std::vector<std::string_view> &files) {
    for (std::size_t index = 0; index < saveBoxTotal; ++index) {
        if (boxes_[index] == nullptr)
            continue;
        QStringList notes(projectNotes_[index]);
        notes.removeAll(QString());
        const bool isEdited = std::ranges::find(files, SaveBoxCaption(index)) != files.end();
        if (isEdited)
            notes << QStringLiteral("edited since it was saved");
        const QString note = notes.join(QStringLiteral(", "));
        notes_[index]->setText(note);
        boxes_[index]->setAccessibleDescription(note);
        marks_[index]->setPixmap(isEdited ? EditedMark(devicePixelRatioF()) : QPixmap());
    }
}

void frm_save::Say(const QString &text) {
    message_->setText(text);
    message_->setVisible(!text.isEmpty());
}

void frm_save::Untick() {
    all_->setChecked(false);
    for (QCheckBox *check : boxes_)
        if (check != nullptr)
            check->setChecked(false);
}

void frm_save::keyPressEvent(QKeyEvent *event) {
    const bool goesOn = event->key() == Qt::Key_Down;
    if (goesOn || event->key() == Qt::Key_Up)
        focusNextPrevChild(goesOn);
    else
        QDialog::keyPressEvent(event);
}

void frm_save::SaveTicked() {
    SaveBoxes ticked{};
    for (std::size_t index = 0; index < ticked.size(); ++index)
        ticked[index] = boxes_[index] != nullptr && boxes_[index]->isChecked();
    if (save_(ticked))
        accept();
}

}  // namespace vtr
