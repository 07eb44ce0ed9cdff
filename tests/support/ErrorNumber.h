#pragma once

#include "platform/RunTimeError.h"

#include <functional>

namespace vastrel {

/// The number of the run-time error that a call ends with; 0 where it ends well.
inline long ErrorNumber(const std::function<void()>& call) {
    try {
        call();
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

} // namespace vastrel
