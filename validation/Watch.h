#pragma once

#include "core/export/ExportArithmetic.h"
#include "core/prospective/HValueCalculator.h"
#include "validation/RandomNumbers.h"
#include "validation/StudyMaps.h"

#include <vector>

namespace vastrel::validation {

/// Where the scores of a watch come from: standard normal ones, or deviations of Poisson counts from their
/// expectation, all regions alike.
struct ScoreSource {
    ExportOption Transform = ExportOption::None; // None: normal scores
    double Expected = 0;
};

/// A watch on a map in which the scores of some regions are raised from the first period on.
struct WatchedMap {
    const StudyMap* Map = nullptr;
    double Sigma = 0, K = 0.5;
    ScoreSource Source;
    std::vector<std::ptrdiff_t> Raised;
    double Shift = 0; // standard deviations
    long Limit = 0;   // periods after which a run ends without a signal
};

/// A threshold and the value at which the sums of all regions start.
struct Alarm {
    double H = 0, Start = 0;
};

/// The h that the calculator gives.
double CalculatedH(HValueOption option, double k, double arl0, double regions, double sigma);

/// Watches one map many times over. The weights are computed once, by the procedures of the program; filter
/// and recursion are those of the program, some periods at a time.
class Watch {
public:
    explicit Watch(const WatchedMap& watched);

    /// Of each alarm the first period in which any region's cusum is above its threshold; 0 where none was up
    /// to the limit. All alarms watch the same scores.
    std::vector<long> FirstSignals(const std::vector<Alarm>& alarms, RandomNumbers& random) const;

private:
    Table<double> DrawScores(RandomNumbers& random) const;

    WatchedMap watched_;
    std::ptrdiff_t n_;
    Table<double> weights_;
    std::vector<PoissonDraw> counts_; // one, or none for normal scores
};

} // namespace vastrel::validation
