#include "FileChooser.h"

#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <algorithm>

#include "Paths.h"
#include "ShowMessage.h"
#include "Text.h"

namespace vtr {

namespace {

/// "caption|pattern" as Qt wants it: "caption (pattern)".
QString QtFilter(std::string_view filter) {
    const auto bar = filter.find('|');
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(filter.substr(0, bar)),
                                         QString::fromUtf8(filter.substr(bar + 1)));
}

QString Chosen(QFileDialog &chooser) {
    return chooser.exec() == QDialog::Accepted ? chooser.selectedFiles().value(0) : QString();
}

/// True when there is nothing at path, or a file that the user wants to replace.
bool MayReplace(QWidget *parent, const std::string &path) {
    if (!FileExists(path))
        return true;
    const std::string onDisk = PathOnDisk(path);
    const QString shown = QString::fromStdString(Shortened(onDisk, longestShownPath));
    if (QFileInfo(QString::fromStdString(onDisk)).isDir()) {
        ShowMessage(parent, QMessageBox::Warning,
                    QFileDialog::tr("There is a folder called %1\nChoose another name.").arg(shown));
        return false;
    }
    QMessageBox box(QMessageBox::Question, programTitle,
                    QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(shown),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

/// Adds the suffix and asks about replacing. Qt would not add it to a name with a dot, and so would ask about
/// another file than the one that is written.
QString ChosenToSave(QFileDialog &chooser, const QString &suffix) {
    chooser.setOption(QFileDialog::DontConfirmOverwrite);
    while (true) {
        QString path = Chosen(chooser);
        if (!path.isEmpty() && !path.endsWith(suffix, Qt::CaseInsensitive))
            path += suffix;
        if (path.isEmpty() || MayReplace(chooser.parentWidget(), NativePath(path)))
            return path;
    }
}

/// Places chooser, which is not shown yet, beside other so that it covers nothing of it, as far as the screen
/// has room. other moves only when there is no room beside it.
void PlaceBeside(QFileDialog &chooser, QWidget &other) {
    const QRect screen = other.screen()->availableGeometry();
    QRect frame = other.frameGeometry();
    const QSize borders = frame.size() - other.size();
    chooser.ensurePolished();
    const int room =
        std::max(screen.width() - frame.width() - borders.width(), chooser.minimumSizeHint().width());
    chooser.resize(std::min(chooser.width(), room), chooser.height());
    const QSize size = chooser.size() + borders;
    int left = frame.right() + 1;
    if (left + size.width() > screen.right() + 1)
        left = frame.left() - size.width();
    if (left < screen.left()) {
        frame.moveLeft(screen.left());
        other.move(frame.topLeft());
        left = std::max(screen.left(), std::min(frame.right() + 1, screen.right() + 1 - size.width()));
    }
    const int lowest = screen.bottom() + 1 - size.height();
    chooser.move(left, std::max(screen.top(), std::min(frame.top(), lowest)));
}

}  // namespace

std::string NativePath(const QString &path) {
    return QDir::toNativeSeparators(path).toStdString();
}

std::string ChooseFile(QWidget *parent, QFileDialog::AcceptMode mode, const QString &title,
                       std::string_view filter, const std::string &preset, QWidget *beside) {
    QFileDialog chooser(parent, title, QString(), QtFilter(filter));
    chooser.setObjectName(QStringLiteral("cmdiag"));
    chooser.setWindowModality(Qt::WindowModal);
    chooser.setAcceptMode(mode);
    chooser.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (FileNameOf(preset).empty() && !preset.empty())
        chooser.setDirectory(QString::fromStdString(preset));
    else if (!preset.empty())
        chooser.selectFile(QString::fromStdString(preset));
    if (beside != nullptr)
        PlaceBeside(chooser, *beside);
    return NativePath(mode == QFileDialog::AcceptSave
                          ? ChosenToSave(chooser, QString::fromUtf8(filter.substr(filter.rfind('.'))))
                          : Chosen(chooser));
}

std::string ChooseFolder(QWidget *parent, const QString &title, const std::string &start) {
    QFileDialog chooser(parent, title, QString::fromStdString(start));
    chooser.setObjectName(QStringLiteral("cmdiag"));
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    return NativePath(Chosen(chooser));
}

}  // namespace vtr
