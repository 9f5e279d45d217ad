#include <cstdlib>
#include <memory>

#include "Errors.h"
#include "Hash.h"
#include "UnsavedWork.h"

// Whatever reads as unsaved work is written as the same bytes. The input stands for the fields: the size and
// the checksum around them are right, so that it gets past those.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const auto campaign = std::make_unique<vtr::Campaign>();
    static const vtr::Bytes start = vtr::EncodeUnsavedWork({}, *campaign);
    vtr::Bytes file(start.begin(), start.begin() + 20);
    file.insert(file.end(), data, data + size);
    const auto putNumber = [&file](std::size_t offset, std::uint64_t number) {
        file.resize(std::max(file.size(), offset + 8));
        for (std::size_t i = 0; i < 8; ++i)
            file[offset + i] = static_cast<std::uint8_t>(number >> (8 * i));
    };
    putNumber(12, file.size() + 8);
    putNumber(file.size(), vtr::HashOf(file));
    try {
        vtr::DecodeUnsavedWork(file, "fuzzed", *campaign);
    } catch (const vtr::Error &) {
    }
    return 0;
}
