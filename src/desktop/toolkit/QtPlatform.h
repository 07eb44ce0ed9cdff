#pragma once

#include "core/platform/Platform.h"

#include <chrono>

namespace vastrel {

/// The platform of the desktop: the one place of message boxes and file dialogs.
class QtPlatform : public Platform {
public:
    /// How long one yield lasts, so that 300000 of them take about three seconds on any machine.
    static constexpr std::chrono::microseconds YieldTime{10};

    void ShowMessage(const Message& message) override;
    FileChoice ChooseFile(const FileQuestion& question) override;
    void SetBusyPointer(bool busy) override;
    void Yield(long count) override;
    void ReportRunTimeError(const RunTimeError& error) override;
    [[noreturn]] void EndProcess(int status) override;
    std::string ProgramFolder() override;

private:
    bool busy_ = false;
};

} // namespace vastrel
