#include "ErrorReport.h"

#include <QStringList>

#include "Text.h"

namespace vtr {

namespace {

/// A path may be long; what was found in a file may be a line of a million letters.
constexpr std::size_t longestShown = 600;

QString WithCapital(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

QString WhatWentWrong(const Error &error) {
    const std::string kind(ErrorKindText(error.Kind()));
    if (error.Step().empty())
        return WithCapital(QString::fromStdString(kind)) + QStringLiteral(".");
    // Which step met a missing file does not matter to anybody.
    const std::string failure = error.Kind() == ErrorKind::FileMissing ? kind : error.Step() + " failed";
    return WithCapital(QString::fromStdString(failure + ": " + error.Reason()));
}

QString FileNow(FileAfterwards file) {
    switch (file) {
        case FileAfterwards::Replaced:
            return QStringLiteral("The file is written all the same, but may not be safely on the disk yet.");
        case FileAfterwards::MayBeDamaged:
            return QStringLiteral("The file may be damaged now.");
        case FileAfterwards::AsBefore:
            break;
    }
    return {};
}

}  // namespace

QString ErrorReport(const QString &operation, const Error &error, const QString &consequence) {
    QStringList lines{operation + QStringLiteral(" failed."), QString(), WhatWentWrong(error)};
    const auto add = [&lines](const char *label, const std::string &value) {
        if (!value.empty())
            lines << QStringLiteral("%1: %2").arg(
                QLatin1String(label),
                QString::fromStdString(Utf8OfProjectText(Shortened(value, longestShown))));
    };
    add("File", error.File());
    add("Place", error.PlaceText());
    add("Expected", error.Expected());
    add("Found", error.Found());
    if (const QString fileNow = FileNow(error.AfterTheFailure()); !fileNow.isEmpty())
        lines << fileNow;
    lines << QString() << consequence;
    return lines.join(QLatin1Char('\n'));
}

}  // namespace vtr
