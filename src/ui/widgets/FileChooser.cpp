#include "FileChooser.h"

#include <QDir>

namespace vtr {

namespace {

/// "caption|pattern" as Qt wants it: "caption (pattern)".
QString QtFilter(std::string_view filter) {
    const auto bar = filter.find('|');
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(filter.substr(0, bar)),
                                         QString::fromUtf8(filter.substr(bar + 1)));
}

}  // namespace

std::string ChooseFile(QWidget *parent, QFileDialog::AcceptMode mode, const QString &title,
                       std::string_view filter, const std::string &preset) {
    QFileDialog chooser(parent, title, QString(), QtFilter(filter));
    chooser.setObjectName(QStringLiteral("cmdiag"));
    chooser.setWindowModality(Qt::WindowModal);
    chooser.setAcceptMode(mode);
    chooser.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (mode == QFileDialog::AcceptSave)
        chooser.setDefaultSuffix(QString::fromUtf8(filter.substr(filter.rfind('.') + 1)));
    if (!preset.empty())
        chooser.selectFile(QString::fromStdString(preset));
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(chooser.selectedFiles().constFirst()).toStdString();
}

}  // namespace vtr
