#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "Errors.h"

namespace vtr {

/// The Error that call throws; a test failure and an empty one when it throws none.
inline Error ErrorThrownBy(const std::function<void()> &call) {
    try {
        call();
    } catch (const Error &error) {
        return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {ErrorKind::FileMissing, {}, "", ""};
}

/// Its kind.
inline ErrorKind KindThrownBy(const std::function<void()> &call) {
    return ErrorThrownBy(call).Kind();
}

}  // namespace vtr
