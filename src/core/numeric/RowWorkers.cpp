#include "core/numeric/RowWorkers.h"

#include <algorithm>
#include <atomic>
#include <cfenv>
#include <exception>
#include <mutex>
#include <system_error>
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
    /// Runs a part of the work on this thread and collects its floating-point flags and its failure.
    void Collect(const std::function<void()>& part) {
        std::feclearexcept(FE_ALL_EXCEPT);
        std::exception_ptr failure;
        try {
            part();
        } catch (...) {
            failure = std::current_exception();
        }
        const int flags = std::fetestexcept(FE_ALL_EXCEPT);
        const std::lock_guard lock(mutex_);
        flags_ |= flags;
        if (!failure_) failure_ = failure;
    }

    void RaiseHere() {
        std::feraiseexcept(flags_);
        if (failure_) std::rethrow_exception(failure_);
    }

private:
    std::mutex mutex_;
    int flags_ = 0;
    std::exception_ptr failure_;
};

} // namespace

RowShare EvenShares(std::ptrdiff_t rows) {
    return [rows](std::ptrdiff_t worker, std::ptrdiff_t workers) {
        return RowRange{rows * worker / workers, rows * (worker + 1) / workers};
    };
}

RowShare TriangleShares(std::ptrdiff_t rows) {
    // The first r rows of n hold the part r (2n - r) / n^2 of the triangle.
    return [n = rows](std::ptrdiff_t worker, std::ptrdiff_t workers) {
        const auto rowsOfFirst = [=](std::ptrdiff_t part) {
            std::ptrdiff_t r = 0;
            while (r * (2 * n - r) * workers < n * n * part)
                ++r;
            return r;
        };
        return RowRange{rowsOfFirst(worker), rowsOfFirst(worker + 1)};
    };
}

int WorkersFor(std::ptrdiff_t operations) {
    if (forcedWorkers > 0) return forcedWorkers;
    const std::ptrdiff_t cores = std::max(1U, std::thread::hardware_concurrency());
    return static_cast<int>(std::clamp<std::ptrdiff_t>(operations / OperationsOfAWorker, 1, cores));
}

void ForceWorkers(int workers) {
    forcedWorkers = workers;
}

void RunRowWorkers(int workers, const RowShare& share, const std::function<void(RowRange)>& work) {
    Handback handback;
    {
        std::vector<std::jthread> threads; // joined at the end of the block, however it is left
        threads.reserve(static_cast<size_t>(workers));
        for (int worker = 1; worker < workers; ++worker) {
            const RowRange range = share(worker, workers);
            try {
                threads.emplace_back([&, range] { handback.Collect([&] { work(range); }); });
            } catch (const std::system_error&) {
                work(range); // no further thread to be had
            }
        }
        work(share(0, workers));
    }
    handback.RaiseHere();
}

} // namespace vastrel
