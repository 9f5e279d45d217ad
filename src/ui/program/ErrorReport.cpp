#include "ErrorReport.h"

#include <QStringList>

#include "Text.h"

namespace vtr {

namespace {

QString WithCapital(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

/// What was found that is not as it should be, as a player would say it.
QString WhatIsWrong(ErrorKind kind) {
    switch (kind) {
        case ErrorKind::Overflow:
            return QStringLiteral("Something does not fit where it is to go.");
        case ErrorKind::IndexOutOfRange:
            return QStringLiteral("A number stands for something that does not exist.");
        case ErrorKind::TypeMismatch:
            return QStringLiteral("The file does not hold what is expected there.");
        default:
            return WithCapital(QString::fromUtf8(ErrorKindText(kind))) + QLatin1Char('.');
    }
}

QString WhatWentWrong(const Error &error) {
    if (error.Step().empty())
        return WhatIsWrong(error.Kind());
    const std::string kind(ErrorKindText(error.Kind()));
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
                QString::fromStdString(Utf8OfProjectText(Shortened(value, longestShownPath))));
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
