#include "core/text/SaveSignals.h"

#include <array>
#include <atomic>
#include <csignal>
#include <unistd.h>

namespace vastrel {

namespace {

constexpr std::array Watched = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGXCPU, SIGPIPE, SIGXFSZ};

/// Whose turn it is: a handler that finds the names at rest ends the process, and whoever would change them
/// then waits for that end. One that finds somebody at work leaves a word.
enum class Turn { Nobody, Work, End };
std::atomic<Turn> turn{Turn::Nobody};
std::atomic<int> waiting{0}; // the signal that a SignalsWait holds up
int waits = 0;

std::array<struct sigaction, Watched.size()> before{};
std::array<bool, Watched.size()> taken{};
int guards = 0;

TemporaryName* newest = nullptr;

[[noreturn]] void EndBy(int signal) {
    TemporaryName::RemoveAll();
    std::signal(signal, SIG_DFL);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, signal);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    std::raise(signal);
    constexpr int killedBy = 128;
    _exit(killedBy + signal);
}

void OnSignal(int signal, siginfo_t* info, void*) {
    const bool ownWrite = (signal == SIGPIPE || signal == SIGXFSZ) && info->si_pid == getpid();
    if (ownWrite) return;
    Turn nobody = Turn::Nobody;
    if (turn.compare_exchange_strong(nobody, Turn::End)) EndBy(signal);
    waiting = signal;
}

} // namespace

SaveSignals::SaveSignals() {
    if (guards++ > 0) return;
    struct sigaction ours = {};
    ours.sa_sigaction = OnSignal;
    ours.sa_flags = SA_SIGINFO | SA_RESTART;
    sigfillset(&ours.sa_mask);
    for (size_t i = 0; i < Watched.size(); ++i) {
        sigaction(Watched.at(i), nullptr, &before.at(i));
        taken.at(i) = (before.at(i).sa_flags & SA_SIGINFO) == 0 && before.at(i).sa_handler == SIG_DFL;
        if (taken.at(i)) sigaction(Watched.at(i), &ours, nullptr);
    }
}

SaveSignals::~SaveSignals() {
    if (--guards > 0) return;
    for (size_t i = 0; i < Watched.size(); ++i)
        if (taken.at(i)) sigaction(Watched.at(i), &before.at(i), nullptr);
}

SignalsWait::SignalsWait() {
    if (waits++ > 0) return;
    Turn nobody = Turn::Nobody;
    while (!turn.compare_exchange_strong(nobody, Turn::Work)) {
        pause(); // a handler on another thread is ending the process
        nobody = Turn::Nobody;
    }
}

SignalsWait::~SignalsWait() {
    if (--waits > 0) return;
    turn = Turn::Nobody;
    const int signal = waiting.exchange(0);
    Turn nobody = Turn::Nobody;
    if (signal != 0 && turn.compare_exchange_strong(nobody, Turn::End)) EndBy(signal);
}

TemporaryName::~TemporaryName() {
    const SignalsWait wait;
    if (made_) Remove();
    Forget();
}

void TemporaryName::MarkMade() {
    made_ = true;
    older_ = newest;
    if (older_ != nullptr) older_->newer_ = this;
    newest = this;
}

void TemporaryName::Forget() {
    const SignalsWait wait;
    if (!made_) return;
    made_ = false;
    (newer_ != nullptr ? newer_->older_ : newest) = older_;
    if (older_ != nullptr) older_->newer_ = newer_;
    newer_ = older_ = nullptr;
}

void TemporaryName::Remove() const {
    if (kind_ == Kind::Folder)
        rmdir(path_.c_str());
    else
        unlink(path_.c_str());
}

void TemporaryName::RemoveAll() {
    for (const TemporaryName* name = newest; name != nullptr; name = name->older_)
        name->Remove();
}

} // namespace vastrel
