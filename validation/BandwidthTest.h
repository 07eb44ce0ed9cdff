#pragma once

#include "core/retrospective/ScoreArithmetic.h"
#include "validation/PValueCut.h"
#include "validation/StudyMaps.h"

#include <array>
#include <bitset>
#include <map>
#include <string>

namespace vastrel::validation {

/// What can be decided about one dataset at one bandwidth: a statistic against a rule, "M Pearson" and
/// "above M* 0.05", say. The p-value of a score far below 0 is small too, which says nothing of a cluster;
/// rules with "z above 0" leave that side out.
struct Decision {
    std::string Statistic, Rule;
};
const std::vector<Decision>& Decisions();

/// What simulated critical values are given for. The last two are the scores behind the p-values.
constexpr int ValueCount = 5;
const std::array<std::string, ValueCount>& ValueNames();

/// What the program says of one dataset at one bandwidth, or of a range of them: Made[d] where it takes
/// decision d, Stopped where the chi-squared p-value of the unadjusted or adjusted score ends in a run-time
/// error.
struct Verdict {
    std::bitset<64> Made;
    std::array<bool, 2> Stopped{};
    std::array<double, ValueCount>
        Values{}; // the largest M of three kinds; the scores of two chi-squared p-values

    /// Takes another bandwidth of the same dataset.
    void Add(const Verdict& other);
};

/// The retrospective test of many datasets of the same expected counts at one bandwidth. What does not depend
/// on the observed counts is computed once, by the procedures of the program: weights, moments, critical
/// values. What does is computed for many datasets at a time: a table of scores is smoothed with the product
/// that smooths the periods of the prospective test. A test holds the results against those of a run of the
/// program, bit for bit.
class BandwidthTest {
public:
    /// `totals` are the totals of cases that will occur; none where the score statistic is left out.
    BandwidthTest(const StudyMap& map, const Array1<double>& expected, double sigma,
                  const std::vector<double>& totals);

    /// The verdict on each column 1.. of a table of observed counts. Uses no store, and may run on many
    /// threads.
    std::vector<Verdict> Judge(const Table<double>& observed) const;

    bool HasScore() const { return !moments_.empty(); }

private:
    struct BothMoments {
        Moments Plain, Adjusted;
        std::array<double, 4> ChiCritical{}; // plain 0.05 and 0.01, adjusted 0.05 and 0.01
    };

    void TakeMoments(double total);
    Table<double> Scores(const Table<double>& observed, double (*score)(double, double)) const;
    void JudgeM(const Table<double>& observed, std::vector<Verdict>& verdicts) const;
    void JudgeScore(const Table<double>& observed, std::vector<Verdict>& verdicts) const;

    std::ptrdiff_t n_;
    Array1<double> expected_;
    std::array<double, 2> criticalM_{}; // at 0.05 and 0.01
    Table<double> weightM_, weightUnadjusted_, weightAdjusted_;
    std::map<double, BothMoments> moments_; // by total
};

/// The p-values that decisions are made by.
constexpr std::array<double, 9> PValueLimits{0.001, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.3, 0.4};
constexpr std::array<double, 2> Alphas{0.05, 0.01};

} // namespace vastrel::validation
