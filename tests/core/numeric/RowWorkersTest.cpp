#include "core/numeric/RowWorkers.h"

#include "core/platform/RunTimeError.h"
#include "support/ForcedMachine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cfenv>
#include <chrono>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

using namespace vastrel;

TEST(RowWorkers, EveryRowIsWorkedOnOnce) {
    for (const int workers : {1, 2, 3, 7})
        for (const int rows : {0, 1, 2, 3, 10, 100, 1000}) {
            std::vector<std::atomic<int>> visits(static_cast<size_t>(rows));
            RunRowWorkers(workers, rows, [&](RowRange range) {
                for (auto i = range.First; i < range.Last; ++i)
                    ++visits[static_cast<size_t>(i)];
            });
            for (const auto& count : visits)
                EXPECT_EQ(count, 1) << rows << " rows, " << workers << " workers";
        }
}

TEST(RowWorkers, PiecesAreOfRowsThatStayTogetherAndNotTooLarge) {
    for (const int workers : {1, 2, 3}) {
        std::mutex mutex;
        std::vector<RowRange> pieces;
        RunTeam(workers, [&](Team& team) {
            team.Share(100, 8, 24, [&](RowRange range) {
                const std::lock_guard lock(mutex);
                pieces.push_back(range);
            });
        });
        for (const RowRange& piece : pieces) {
            EXPECT_EQ(piece.First % 8, 0);
            EXPECT_TRUE(piece.Last % 8 == 0 || piece.Last == 100);
            EXPECT_LE(piece.Last - piece.First, 24);
        }
        if (workers == 1) {
            EXPECT_EQ(pieces.size(), 5U);
        }
    }
}

// A member that is held up leaves its rows to the others.
TEST(RowWorkers, RowsAreSharedOutWhileTheyRun) {
    std::atomic<int> others = 0;
    const auto caller = std::this_thread::get_id();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    RunRowWorkers(2, 1000, [&](RowRange range) {
        if (std::this_thread::get_id() != caller)
            others += static_cast<int>(range.Last - range.First);
        else
            while (others < 700 && std::chrono::steady_clock::now() < end)
                std::this_thread::yield();
    });
    EXPECT_GE(others, 700);
}

TEST(RowWorkers, NoMemberBeginsAStepBeforeTheLastIsDone) {
    for (const int workers : {1, 2, 5}) {
        std::vector<std::atomic<int>> done(40);
        std::atomic<int> early = 0;
        RunTeam(workers, [&](Team& team) {
            for (int step = 0; step < 40; ++step)
                team.Share(9, 1, 9, [&](RowRange range) {
                    if (step > 0 && done[static_cast<size_t>(step - 1)] != 9) ++early;
                    done[static_cast<size_t>(step)] += static_cast<int>(range.Last - range.First);
                });
        });
        EXPECT_EQ(early, 0);
        EXPECT_EQ(done.back(), 9);
    }
}

TEST(RowWorkers, TheOthersGoOnWhenAMemberFailsBetweenSteps) {
    std::atomic<int> rows = 0;
    const auto caller = std::this_thread::get_id();
    EXPECT_THROW(RunTeam(3,
                         [&](Team& team) {
                             team.Share(5, 1, 5, [](RowRange) {});
                             if (std::this_thread::get_id() == caller) throw std::bad_alloc();
                             team.Share(50, 1, 50, [&](RowRange range) {
                                 rows += static_cast<int>(range.Last - range.First);
                             });
                         }),
                 std::bad_alloc);
    EXPECT_EQ(rows, 50);
}

TEST(RowWorkers, FlagsOfEveryWorkerAreRaisedInTheCaller) {
    for (const std::ptrdiff_t faulty : {0, 1, 2}) {
        std::feclearexcept(FE_ALL_EXCEPT);
        RunRowWorkers(3, 3, [&](RowRange range) {
            if (range.First == faulty) std::feraiseexcept(FE_DIVBYZERO | FE_OVERFLOW);
        });
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO | FE_OVERFLOW) << faulty;
    }
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(RowWorkers, FlagsOfTheCallerStay) {
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_INVALID);
    RunRowWorkers(2, 2, [](RowRange) {});
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_INVALID);
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(RowWorkers, FailureOfAWorkerReachesTheCallerOnceAllHaveEnded) {
    for (const std::ptrdiff_t failing : {0, 1, 2}) {
        std::atomic<int> ended = 0;
        EXPECT_THROW(RunRowWorkers(3, 3,
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
