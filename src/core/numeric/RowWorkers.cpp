#include "core/numeric/RowWorkers.h"

#include <algorithm>
#include <atomic>
#include <cfenv>
#include <exception>
#include <latch>
#include <mutex>
#include <thread>
#include <vector>

namespace vastrel {

namespace {

/// Below this a second thread costs more than it brings.
constexpr std::ptrdiff_t OperationsOfAWorker = 2'000'000;

std::atomic<int> forcedWorkers = 0;

/// What the workers hand back to the caller.
class Handback {
public:
    /// Runs a worker's part and keeps its failure.
    void Run(const std::function<void()>& part) {
        try {
            part();
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) failure_ = std::current_exception();
        }
    }

    /// The same on a thread of its own, whose floating-point flags are kept too.
    void RunApart(const std::function<void()>& part) {
        std::feclearexcept(FE_ALL_EXCEPT);
        Run(part);
        flags_ |= std::fetestexcept(FE_ALL_EXCEPT);
    }

    void RaiseHere() {
        std::feraiseexcept(flags_);
        if (failure_) std::rethrow_exception(failure_);
    }

private:
    std::mutex mutex_;
    std::atomic<int> flags_ = 0;
    std::exception_ptr failure_;
};

} // namespace

int WorkersFor(std::ptrdiff_t operations) {
    if (forcedWorkers > 0) return forcedWorkers;
    const std::ptrdiff_t cores = std::max(1U, std::thread::hardware_concurrency());
    return static_cast<int>(std::clamp<std::ptrdiff_t>(operations / OperationsOfAWorker, 1, cores));
}

void ForceWorkers(int workers) {
    forcedWorkers = workers;
}

void Team::Meet(int members) {
    members_ = members;
    if (members > 1) meeting_.emplace(members, Begin{this});
}

void Team::Wait() {
    if (meeting_)
        meeting_->arrive_and_wait();
    else
        next_ = 0;
}

void Team::Leave() {
    if (meeting_) meeting_->arrive_and_drop();
}

RowRange Team::Take(std::ptrdiff_t rows, std::ptrdiff_t together, std::ptrdiff_t atMost) {
    constexpr std::ptrdiff_t pieces = 3; // for each member, of those rows that are left
    std::ptrdiff_t first = next_;
    for (;;) {
        if (first >= rows) return {rows, rows};
        const std::ptrdiff_t share = members_ == 1 ? rows : (rows - first) / (pieces * members_);
        const std::ptrdiff_t count = std::min(share, atMost) / together * together;
        const std::ptrdiff_t last = std::min(rows, first + std::max(count, together));
        if (next_.compare_exchange_weak(first, last)) return {first, last};
    }
}

void Team::Share(std::ptrdiff_t rows, std::ptrdiff_t together, std::ptrdiff_t atMost, const RowWork& work) {
    for (RowRange range = Take(rows, together, atMost); range.First < range.Last;
         range = Take(rows, together, atMost))
        work(range);
    Wait();
}

void RunTeam(int workers, const std::function<void(Team&)>& steps) {
    Handback handback;
    Team team;
    const auto part = [&] { steps(team); };
    {
        std::latch complete(1);
        std::vector<std::jthread> threads; // joined at the end of the block
        try {
            threads.reserve(static_cast<size_t>(workers));
            for (int worker = 1; worker < workers; ++worker)
                threads.emplace_back([&] {
                    complete.wait();
                    handback.RunApart(part);
                    team.Leave();
                });
        } catch (const std::exception&) {
            // No further thread to be had: the team is a smaller one.
        }
        team.Meet(static_cast<int>(threads.size()) + 1);
        complete.count_down();
        handback.Run(part);
        team.Leave();
    }
    handback.RaiseHere();
}

void RunRowWorkers(int workers, std::ptrdiff_t rows, const RowWork& work, std::ptrdiff_t together) {
    RunTeam(workers, [&](Team& team) { team.Share(rows, together, rows, work); });
}

} // namespace vastrel
