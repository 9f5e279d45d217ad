#include "MapGeneration.h"

#include <filesystem>
#include <system_error>

#include "AtomicWrite.h"
#include "Paths.h"
#include "TerrainMap.h"
#include "WholeFile.h"

namespace vtr {

namespace {

/// Deletes the file, or the symbolic link, at path if it can.
void DeleteFile(const std::string &path) {
    const std::filesystem::path file = FilesystemPath(PathOnDisk(path));
    std::error_code ignored;
    if (!std::filesystem::is_directory(std::filesystem::symlink_status(file, ignored)))
        std::filesystem::remove(file, ignored);
}

}  // namespace

void GenerateMap(const std::string &templatePath, const std::string &folder, const std::string &terrainName) {
    constexpr std::size_t templateSize = 1078;  // the headers and the colour table of an 8-bit bitmap
    const std::string mapPath = folder + std::string(generatedMapName);
    // So the project cannot show the map of another terrain when a later step fails.
    DeleteFile(mapPath);
    Bytes bytes = ReadStartOfFile(templatePath, templateSize);
    bytes.resize(templateSize);
    TerrainMap terrain;
    ReadTerrainMap(folder + terrainName, terrain);
    bytes.insert(bytes.end(), terrain.begin(), terrain.end());
    AtomicWrite(mapPath, bytes);
}

}  // namespace vtr
