#include <memory>

#include "FrontlineFile.h"
#include "IgnoringListener.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const auto campaign = std::make_unique<vtr::Campaign>();
    vtr::IgnoringListener listener;
    try {
        vtr::DecodeFrontlines({data, size}, "fuzzed", *campaign, listener);
        vtr::EncodeFrontlines(*campaign);
    } catch (const vtr::Error &) {
    }
    return 0;
}
