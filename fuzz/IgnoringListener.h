#pragma once

#include "LoadListener.h"

namespace vtr {

/// For readers whose reports nobody asks for.
struct IgnoringListener : LoadListener {
    void AddProgress(double) override {}
    void FoundShortFile(const ShortFile &) override {}
};

}  // namespace vtr
