#pragma once

#include <QFileDialog>
#include <string>
#include <string_view>

namespace vtr {

/// The filter of the editor's project files.
inline constexpr std::string_view projectFilter = "Target Editor Projects|*.prj";

/// Lets the user choose one file. filter is a caption and a pattern with "|" between them; preset is the path
/// that the chooser opens with, if any. Gives the file's path (UTF-8), empty when the user has cancelled.
std::string ChooseFile(QWidget *parent, QFileDialog::AcceptMode mode, const QString &title,
                       std::string_view filter, const std::string &preset = {});

}  // namespace vtr
