#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace vtr {

/// The game's single-byte text as it is shown.
QString ShownText(std::string_view bytes);
/// The single-byte text that is shown as text; nothing when a character has no such byte.
std::optional<std::string> GameTextOf(const QString &text);
/// The text of a project's name from its file. A very long one is shortened.
QString ShownProjectName(std::string_view name);
/// The same for the caption of a menu entry or a button.
QString ProjectCaption(std::string_view name);

}  // namespace vtr
