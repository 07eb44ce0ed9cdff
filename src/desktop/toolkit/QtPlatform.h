#pragma once

#include "core/platform/Platform.h"

#include <chrono>
#include <memory>

namespace vastrel {

class InputGate;

/// The platform of the desktop: the one place of message boxes and file dialogs.
class QtPlatform : public Platform {
public:
    /// From now on the toolkit keeps no settings: nothing is written but what the user saves.
    QtPlatform();
    ~QtPlatform() override;

    /// How long one yield lasts, so that 300000 of them take about three seconds on any machine.
    static constexpr std::chrono::microseconds YieldTime{10};

    void ShowMessage(const Message& message) override;
    FileChoice ChooseFile(const FileQuestion& question) override;
    /// A run that computes takes no input: what is clicked and typed behind the call with true is dropped at
    /// a message, at the first yield, or at the call with false where there was no yield.
    void SetBusyPointer(bool busy) override;
    void DropInput() override;
    void Yield(long count) override;
    void ReportRunTimeError(const RunTimeError& error) override;
    [[noreturn]] void EndProcess(int status) override;
    std::string ProgramFolder() override;

private:
    bool busy_ = false;
    bool computes_ = false; // since the pointer became busy, without a yield
    std::unique_ptr<InputGate> gate_;
};

} // namespace vastrel
