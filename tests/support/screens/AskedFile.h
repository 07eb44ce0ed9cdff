#pragma once

#include "support/ScriptedPlatform.h"

#include <functional>

namespace vastrel {

/// What a file dialog is asked for in the course of an action. The dialog is cancelled; behind it `back` is
/// the platform in use again.
inline FileQuestion AskedFile(Platform& back, const std::function<void()>& action) {
    struct Listener : ScriptedPlatform {
        FileQuestion Asked;
        FileChoice ChooseFile(const FileQuestion& question) override {
            Asked = question;
            return {"", "", true};
        }
    };
    FileQuestion asked;
    {
        Listener listener;
        action();
        asked = listener.Asked;
    }
    SetPlatform(&back);
    return asked;
}

} // namespace vastrel
