#pragma once

#include "core/platform/RunTimeError.h"

namespace vastrel {

/// Runs an operation of a class; an error that leaves it keeps its number and carries the operation's source.
template <typename Operation>
auto WithSource(const char* source, Operation operation) {
    try {
        return operation();
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), source, error.Description());
    }
}

} // namespace vastrel
