#include "core/numeric/RowWorkers.h"

#include "core/platform/RunTimeError.h"
#include "support/ForcedMachine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cfenv>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

using namespace vastrel;

TEST(RowWorkers, EveryRowIsWorkedOnOnceInEitherKindOfShares) {
    for (const int workers : {1, 2, 3, 7})
        for (const int rows : {0, 1, 2, 3, 10, 100}) {
            std::vector<std::atomic<int>> visits(static_cast<size_t>(rows));
            for (const auto& shares : {EvenShares(rows), TriangleShares(rows)})
                RunRowWorkers(workers, shares, [&](RowRange range) {
                    for (auto i = range.First; i < range.Last; ++i)
                        ++visits[static_cast<size_t>(i)];
                });
            for (const auto& count : visits)
                EXPECT_EQ(count, 2) << rows << " rows, " << workers << " workers";
        }
}

TEST(RowWorkers, SharesOfATriangleHoldAboutTheSameNumberOfElements) {
    constexpr std::ptrdiff_t n = 1000, workers = 4;
    for (std::ptrdiff_t worker = 0; worker < workers; ++worker) {
        const RowRange range = TriangleShares(n)(worker, workers);
        std::ptrdiff_t elements = 0;
        for (auto i = range.First; i < range.Last; ++i)
            elements += n - i;
        EXPECT_NEAR(static_cast<double>(elements), n * (n + 1) / 2.0 / workers, 2 * n) << worker;
    }
}

TEST(RowWorkers, WorkIsSplitOverThreadsAndTheCallerIsOne) {
    std::set<std::thread::id> threads;
    std::mutex mutex;
    RunRowWorkers(3, EvenShares(9), [&](RowRange) {
        const std::lock_guard lock(mutex);
        threads.insert(std::this_thread::get_id());
    });
    EXPECT_EQ(threads.size(), 3U);
    EXPECT_TRUE(threads.contains(std::this_thread::get_id()));
}

TEST(RowWorkers, FlagsOfEveryWorkerAreRaisedInTheCaller) {
    for (const std::ptrdiff_t faulty : {0, 1, 2}) {
        std::feclearexcept(FE_ALL_EXCEPT);
        RunRowWorkers(3, EvenShares(3), [&](RowRange range) {
            if (range.First == faulty) std::feraiseexcept(FE_DIVBYZERO | FE_OVERFLOW);
        });
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO | FE_OVERFLOW) << faulty;
    }
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(RowWorkers, FlagsOfTheCallerStay) {
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_INVALID);
    RunRowWorkers(2, EvenShares(2), [](RowRange) {});
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_INVALID);
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(RowWorkers, FailureOfAWorkerReachesTheCallerOnceAllHaveEnded) {
    for (const std::ptrdiff_t failing : {0, 1, 2}) {
        std::atomic<int> ended = 0;
        EXPECT_THROW(RunRowWorkers(3, EvenShares(3),
                                   [&](RowRange range) {
                                       if (range.First == failing)
                                           RaiseCustomary(SubscriptOutOfRange, "test");
                                       ++ended;
                                   }),
                     RunTimeError);
        EXPECT_EQ(ended, 2) << failing;
    }
}

TEST(RowWorkers, SmallComputationsGetOneWorker) {
    const ForcedMachine asItIs({"", 0});
    EXPECT_EQ(WorkersFor(1000), 1);
    EXPECT_EQ(WorkersFor(1'000'000'000'000),
              static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
    const ForcedMachine forced({"", 5});
    EXPECT_EQ(WorkersFor(1000), 5);
}
