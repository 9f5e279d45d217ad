#pragma once

#include <QFileDialog>
#include <string>
#include <string_view>

namespace vtr {

/// A Qt path with the system's own separators (UTF-8).
std::string NativePath(const QString &path);

/// The filter of the editor's project files.
inline constexpr std::string_view projectFilter = "Target Editor Projects|*.prj";

/// Lets the user choose one file and returns its path (UTF-8), empty when the user has cancelled. filter is a
/// caption and a pattern with "|" between them. preset is the file, or the folder ending in a separator, that
/// the chooser opens with. To save, adds the pattern's suffix when it is missing and asks before replacing a
/// file. The chooser stands beside that window, if any.
std::string ChooseFile(QWidget *parent, QFileDialog::AcceptMode mode, const QString &title,
                       std::string_view filter, const std::string &preset = {}, QWidget *beside = nullptr);

/// Lets the user choose a folder, beginning at start. Returns its path without a separator at its end, empty
/// when the user has cancelled.
std::string ChooseFolder(QWidget *parent, const QString &title, const std::string &start);

}  // namespace vtr
