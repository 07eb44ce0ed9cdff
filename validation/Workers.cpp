#include "validation/Workers.h"

#include "core/numeric/RowWorkers.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace vastrel::validation {

namespace {
int workersInUse = 1;
}

void UseWorkers(int workers) {
    workersInUse = workers;
}

void RunParts(long count, const std::function<void(long)>& part) {
    std::atomic<long> next = 0;
    std::mutex mutex;
    std::exception_ptr failure;
    const auto work = [&] {
        try {
            for (long i = next++; i < count; i = next++)
                part(i);
        } catch (...) {
            const std::lock_guard lock(mutex);
            if (!failure) failure = std::current_exception();
            next = count;
        }
    };
    ForceWorkers(1);
    {
        std::vector<std::jthread> threads;
        for (int worker = 1; worker < workersInUse; ++worker)
            threads.emplace_back(work);
        work();
    }
    ForceWorkers(0);
    if (failure) std::rethrow_exception(failure);
}

} // namespace vastrel::validation
