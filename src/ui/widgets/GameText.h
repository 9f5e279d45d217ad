#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace vtr {

/// The game's single-byte text as it is shown.
QString ShownText(std::string_view bytes);
/// The single-byte text that is shown as text; nothing when a character of it has none.
std::optional<std::string> GameTextOf(const QString &text);
/// A project's name as it stands in its file, as a text; a very long one shortened.
QString ShownProjectName(std::string_view name);
/// The same as the caption of a menu entry or a button.
QString ProjectCaption(std::string_view name);

}  // namespace vtr
