#include "IgnoringListener.h"
#include "TargetNameFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static vtr::Campaign campaign;
    vtr::IgnoringListener listener;
    try {
        vtr::DecodeTargetNames({data, size}, "fuzz", campaign, listener);
    } catch (const vtr::Error &) {
    }
    return 0;
}
