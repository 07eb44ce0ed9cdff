#pragma once

#include <atomic>
#include <barrier>
#include <cstddef>
#include <functional>
#include <optional>

namespace vastrel {

/// Rows first .. last - 1, counted from 0.
struct RowRange {
    std::ptrdiff_t First = 0;
    std::ptrdiff_t Last = 0;
};

/// How many workers a computation of `operations` floating-point operations is worth: 1 for a small one, the
/// processor's cores for a large one; always the forced number where one is set.
int WorkersFor(std::ptrdiff_t operations);

/// Sets the number of workers for every computation, small ones too; 0 gives the choice back. For tests and
/// benchmarks.
void ForceWorkers(int workers);

using RowWork = std::function<void(RowRange)>;

/// Some threads that go through the same steps.
class Team {
public:
    /// One step: rows 0 .. rows - 1, shared out while they run, in multiples of `together` rows and at most
    /// `atMost` at a time; smaller pieces towards the end, so that all are ready at about the same time.
    /// Every member calls this, and none returns before all rows are done. `work` touches nothing that
    /// another range's work writes.
    void Share(std::ptrdiff_t rows, std::ptrdiff_t together, std::ptrdiff_t atMost, const RowWork& work);

private:
    friend void RunTeam(int workers, const std::function<void(Team&)>& steps);

    struct Begin {
        Team* Of;
        void operator()() const noexcept { Of->next_ = 0; }
    };

    void Meet(int members);
    void Wait();
    void Leave();
    RowRange Take(std::ptrdiff_t rows, std::ptrdiff_t together, std::ptrdiff_t atMost);

    int members_ = 0;
    std::atomic<std::ptrdiff_t> next_ = 0;
    std::optional<std::barrier<Begin>> meeting_; // none where one works alone
};

/// Runs the same steps on `workers` threads, fewer where no more are to be had, and joins them before it
/// returns; the caller is one of them. A member whose steps throw leaves the team, and the others go on.
///
/// Floating-point flags that a worker raises are raised in the caller; the first exception of a worker is
/// thrown again there once all have ended.
void RunTeam(int workers, const std::function<void(Team&)>& steps);

/// A team with one step of `rows` rows, in multiples of `together`.
void RunRowWorkers(int workers, std::ptrdiff_t rows, const RowWork& work, std::ptrdiff_t together = 1);

} // namespace vastrel
