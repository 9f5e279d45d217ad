#include <algorithm>
#include <cstdlib>
#include <memory>

#include "Errors.h"
#include "Hash.h"
#include "UnsavedWork.h"

namespace {

void PutNumber(vtr::Bytes &file, std::size_t offset, std::uint64_t number) {
    for (std::size_t i = 0; i < 8; ++i)
        file[offset + i] = static_cast<std::uint8_t>(number >> (8 * i));
}

}  // namespace

// The input stands in place of the first fields of a whole file, or of all of them. Its size and checksum are
// put right, so that what is fuzzed gets past those. What reads is written and reads again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const auto campaign = std::make_unique<vtr::Campaign>();
    static const vtr::Bytes whole = vtr::EncodeUnsavedWork({}, *std::make_unique<vtr::Campaign>());
    constexpr std::size_t firstField = 20;
    vtr::Bytes file = whole;
    file.resize(std::max(file.size(), firstField + size + 8));
    std::copy_n(data, size, file.begin() + firstField);
    PutNumber(file, 12, file.size());
    PutNumber(file, file.size() - 8, vtr::HashOf(vtr::ConstByteSpan(file).first(file.size() - 8)));
    try {
        const vtr::UnsavedWork work = vtr::DecodeUnsavedWork(file, "fuzzed", *campaign);
        if (vtr::DecodeUnsavedWork(vtr::EncodeUnsavedWork(work, *campaign), "", *campaign) != work)
            std::abort();
    } catch (const vtr::Error &) {
    }
    return 0;
}
