#include "support/RaisedError.h"

namespace vastrel {

std::ostream& operator<<(std::ostream& stream, const RaisedError& error) {
    return stream << error.Number << " [" << error.Source << "] " << error.Description;
}

RaisedError ErrorOf(const std::function<void()>& call) {
    try {
        call();
        return {};
    } catch (const RunTimeError& error) {
        return {error.Number(), error.Source(), error.Description(), error.EndsProcess()};
    }
}

long ErrorNumberOf(const std::function<void()>& call) {
    return ErrorOf(call).Number;
}

std::string ErrorDescriptionOf(const std::function<void()>& call) {
    return ErrorOf(call).Description;
}

} // namespace vastrel
