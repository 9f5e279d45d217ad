#include "Errors.h"
#include "ProjectFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    vtr::ProjectPaths paths;
    try {
        vtr::DecodeProjectFile({data, size}, "fuzz/p.prj", paths, [] {});
        vtr::DeriveFolders("fuzz/p.prj", paths);
    } catch (const vtr::Error &) {
    }
    return 0;
}
