#include "batch/Progress.h"

#include "batch/ConsolePlatform.h"

#include <cmath>

namespace vastrel {

namespace {

constexpr std::chrono::milliseconds BetweenLines{100};

double Seconds(Progress::Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

/// To the next whole second, minute or, from an hour on, hour and minute.
std::string DurationText(double seconds) {
    const auto whole = static_cast<long long>(std::ceil(seconds));
    const long long minutes = (whole + 59) / 60;
    if (whole < 60) return std::to_string(whole) + " s";
    if (minutes < 60) return std::to_string(minutes) + " min";
    return std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60) + " min";
}

} // namespace

Progress::Progress(const ProgramOptions& program, std::ptrdiff_t steps, double guessedSecondsAStep)
    : terminal_(program.Quiet || !StandardErrorIsTerminal() ? nullptr : program.Console), steps_(steps),
      guess_(guessedSecondsAStep) {
    Show();
}

Progress::~Progress() {
    if (terminal_ != nullptr) terminal_->ClearProgress();
}

void Progress::StepDone() {
    ++done_;
    if (Clock::now() - shown_ >= BetweenLines) Show();
}

void Progress::Show() {
    if (terminal_ == nullptr || done_ >= steps_) return;
    shown_ = Clock::now();
    const double aStep = done_ > 0 ? Seconds(shown_ - begin_) / static_cast<double>(done_) : guess_;
    std::string line = "Step " + std::to_string(done_ + 1) + " of " + std::to_string(steps_);
    if (aStep > 0) line += ", " + DurationText(aStep * static_cast<double>(steps_ - done_)) + " left";
    terminal_->ShowProgress(line);
}

} // namespace vastrel
