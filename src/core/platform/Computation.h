#pragma once

#include "core/platform/Platform.h"

namespace vastrel {

/// A stretch of a command that computes without the busy pointer. What is clicked and typed meanwhile is
/// dropped at its end, by a fault too.
class Computation {
public:
    Computation() = default;
    ~Computation() { platform().DropInput(); }
    Computation(const Computation&) = delete;
    Computation& operator=(const Computation&) = delete;
};

} // namespace vastrel
