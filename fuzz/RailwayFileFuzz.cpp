#include <memory>

#include "IgnoringListener.h"
#include "RailwayFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const auto campaign = std::make_unique<vtr::Campaign>();
    vtr::IgnoringListener listener;
    try {
        vtr::DecodeRailway({data, size}, "fuzzed", *campaign, listener);
        vtr::EncodeRailway(*campaign);
    } catch (const vtr::Error &) {
    }
    return 0;
}
