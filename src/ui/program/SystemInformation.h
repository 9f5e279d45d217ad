#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace vtr {

/// The text of a value under a key of the machine's part of the registry; nothing when there is none.
using RegistryText = std::function<std::optional<QString>(const QString &key, const QString &value)>;

/// The registry of this system: an empty one where there is none.
std::optional<QString> SystemRegistryText(const QString &key, const QString &value);

/// Starts the system's information tool, which registry names. False when there is none or it does not start.
bool StartSystemInformation(const RegistryText &registry);

}  // namespace vtr
