#include "Errors.h"
#include "modPcxReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
    try {
        vtr::DecodePcx({bytes, size});
    } catch (const vtr::Error &) {
    }
    return 0;
}
