#include "SystemInformation.h"

#include <QFileInfo>
#include <QProcess>
#include <QSettings>

namespace vtr {

std::optional<QString> SystemRegistryText(const QString &key, const QString &value) {
#ifdef Q_OS_WIN
    const QSettings settings(QStringLiteral("HKEY_LOCAL_MACHINE\\") + key, QSettings::NativeFormat);
    if (settings.contains(value))
        return settings.value(value).toString();
#else
    Q_UNUSED(key);
    Q_UNUSED(value);
#endif
    return std::nullopt;
}

bool StartSystemInformation(const RegistryText &registry) {
    if (const auto tool =
            registry(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH")))
        return QProcess::startDetached(*tool, {});
    const auto folder =
        registry(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"));
    if (!folder)
        return false;
    const QString tool = *folder + QStringLiteral("\\MSINFO32.EXE");
    return QFileInfo::exists(tool) && QProcess::startDetached(tool, {});
}

}  // namespace vtr
