#pragma once

#include "batch/SweepPart.h"

namespace vastrel {

/// The parts of one run, whole and of one kind, that stand in the place of its computation.
class JoinedParts {
public:
    /// None: the steps are computed.
    JoinedParts() = default;

    /// Reads the parts. InputRefused, naming it, for a part that ReadPart refuses, that is of another run, of
    /// another number of parts or double, and for one that is missing.
    explicit JoinedParts(const std::vector<std::string>& paths);

    bool IsEmpty() const { return parts_.empty(); }

    /// The run that they are parts of.
    const EarlierRun& Run() const { return parts_.front().Run; }

    /// InputRefused for a part that does not hold its share of so many steps of so many Regions.
    void Require(std::ptrdiff_t steps, std::ptrdiff_t regions) const;

    /// Step k of the run, from 0.
    const SweepStep& Step(std::ptrdiff_t k) const;

private:
    void RequireAll() const;

    std::vector<SweepPart> parts_; // by their numbers
};

} // namespace vastrel
