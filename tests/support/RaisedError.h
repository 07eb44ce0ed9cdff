#pragma once

#include "core/platform/RunTimeError.h"

#include <functional>
#include <ostream>
#include <string>

namespace vastrel {

/// What a call raised; number 0 where it raised nothing.
struct RaisedError {
    long Number = 0;
    std::string Source;
    std::string Description;
    bool EndsProcess = false;
};

std::ostream& operator<<(std::ostream& stream, const RaisedError& error);

RaisedError ErrorOf(const std::function<void()>& call);
long ErrorNumberOf(const std::function<void()>& call);
std::string ErrorDescriptionOf(const std::function<void()>& call);

} // namespace vastrel
