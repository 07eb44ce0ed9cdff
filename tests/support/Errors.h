#pragma once

#include "platform/RunTimeError.h"

#include <string>

namespace vastrel {

/// The number of the run-time error that the call ends with, 0 where it ends well.
template <typename Call>
long NumberOf(Call call) {
    try {
        call();
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

/// Its description, empty where the call ends well.
template <typename Call>
std::string DescriptionOf(Call call) {
    try {
        call();
        return {};
    } catch (const RunTimeError& error) {
        return error.Description();
    }
}

} // namespace vastrel
