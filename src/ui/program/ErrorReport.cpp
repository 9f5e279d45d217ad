#include "ErrorReport.h"

#include <QStringList>

#include "Text.h"

namespace vtr {

namespace {

QString Sentence(std::string_view words) {
    QString text = QString::fromUtf8(words);
    text[0] = text[0].toUpper();
    return text;
}

}  // namespace

QString ErrorReport(const QString &operation, const Error &error, const QString &consequence) {
    QStringList lines{operation + QStringLiteral(" failed."), QString(),
                      Sentence(ErrorKindText(error.Kind())) + QStringLiteral(".")};
    const auto add = [&lines](const char *label, const std::string &value) {
        if (!value.empty())
            lines << QStringLiteral("%1: %2").arg(QLatin1String(label),
                                                  QString::fromStdString(Utf8OfProjectText(value)));
    };
    add("File", error.File());
    add("Place", error.PlaceText());
    add("Expected", error.Expected());
    add("Found", error.Found());
    lines << QString() << consequence;
    return lines.join(QLatin1Char('\n'));
}

}  // namespace vtr
