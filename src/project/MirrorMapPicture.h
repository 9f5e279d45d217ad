#pragma once

#include <string>

#include "ProjectPaths.h"

namespace vtr {

/// The most that a map picture of 256 megapixels, uncompressed, can take.
constexpr std::size_t mostMapMebibytes = 1024;

/// The path of the project's map picture. Throws an Error of the project file when that names none.
std::string MapPicturePath(const ProjectPaths &paths);

/// Turns the picture in the project's map file upside down and replaces the file, whole or not at all, by a
/// bitmap of the same kind. Throws an Error, and leaves the file as it is, when the project names no map
/// picture, when the file lies outside the project's folder, as a symbolic link may lead there, and when it
/// is no plain bitmap; file Errors as well.
void MirrorMapPicture(const ProjectPaths &paths);

}  // namespace vtr
