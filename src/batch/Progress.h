#pragma once

#include "batch/Command.h"

#include <chrono>
#include <string>

namespace vastrel {

/// One line on standard error that tells the step at work and the time left, where that is a terminal and
/// --quiet was not given. The time is that of the steps that are done, and a guess before; the line goes away
/// at the end.
class Progress {
public:
    using Clock = std::chrono::steady_clock;

    /// A guess of 0 is none.
    Progress(const ProgramOptions& program, std::ptrdiff_t steps, double guessedSecondsAStep = 0);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void StepDone();

private:
    void Show();

    ConsolePlatform* terminal_; // none where nothing is shown
    std::ptrdiff_t steps_, done_ = 0;
    double guess_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_{};
};

} // namespace vastrel
