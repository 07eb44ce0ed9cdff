#include "core/platform/Platform.h"

#include "core/platform/RunTimeError.h"

namespace vastrel {

namespace {
Platform* current = nullptr;
}

Platform& platform() {
    if (current == nullptr) RaiseCustomary(ObjectNotSet, "platform");
    return *current;
}

void SetPlatform(Platform* use) {
    current = use;
}

void Warn(const std::string& text) {
    Message message;
    message.Text = text;
    platform().ShowMessage(message);
}

void Tell(const std::string& text) {
    platform().ShowMessage({text, "Vastrel", Message::Icon::Plain});
}

} // namespace vastrel
