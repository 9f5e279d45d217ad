#include "EditedFilesLabel.h"

namespace vtr {

EditedFilesLabel::EditedFilesLabel(QWidget *parent) : QLabel(parent) {
    setObjectName(QStringLiteral("lbl_edited"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void EditedFilesLabel::ShowFiles(const std::vector<std::string_view> &files) {
    QStringList names;
    for (const std::string_view file : files)
        names << QString::fromUtf8(file);
    if (names == files_)
        return;
    files_ = names;
    ShowAsFits();
}

void EditedFilesLabel::ShowAsFits() {
    const QString all =
        files_.isEmpty() ? QString() : tr("Edited: %1").arg(files_.join(QStringLiteral(", ")));
    const bool fits = fontMetrics().horizontalAdvance(all) <= contentsRect().width();
    setText(fits || files_.size() == 1 ? all : tr("Edited: %1 files").arg(files_.size()));
    setToolTip(all);
}

void EditedFilesLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    ShowAsFits();
}

}  // namespace vtr
