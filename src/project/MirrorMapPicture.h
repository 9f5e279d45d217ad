#pragma once

#include <string>

#include "ProjectPaths.h"

namespace vtr {

/// The size of a map picture of 256 megapixels without compression.
constexpr std::size_t mostMapMebibytes = 1024;

/// The path of the project's map picture. Throws an Error with the project file when that names none.
std::string MapPicturePath(const ProjectPaths &paths);

/// Turns the project's map picture upside down and replaces the file, whole or not at all, by a bitmap of the
/// same kind. Throws an Error when the project names no map picture, when the file is no bitmap without
/// compression or lies outside the project's folder (a symbolic link may lead there), and file Errors. Then
/// the file stays as it is.
void MirrorMapPicture(const ProjectPaths &paths);

}  // namespace vtr
