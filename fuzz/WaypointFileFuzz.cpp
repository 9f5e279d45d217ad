#include <memory>

#include "IgnoringListener.h"
#include "WaypointFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const auto campaign = std::make_unique<vtr::Campaign>();
    vtr::IgnoringListener listener;
    for (const auto decode : {vtr::DecodeRoadWaypoints, vtr::DecodeRailWaypoints})
        try {
            decode({data, size}, "fuzzed", *campaign, listener);
        } catch (const vtr::Error &) {
        }
    return 0;
}
