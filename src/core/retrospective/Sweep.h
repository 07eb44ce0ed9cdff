#pragma once

#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/RetroRules.h"
#include "core/workspace/Arrays.h"

#include <functional>
#include <string>

namespace vastrel {

/// Runs a variable over a range of bandwidths and keeps its tables: BandwidthList, the Sweep arrays,
/// StatisticTable, ChartData and ChartLabels. `addRow` gets each row of lstGlobalPatternSummary as soon as it
/// is known. Sets the busy pointer once the texts are accepted; the caller resets it.
///
/// Refused texts show their message: false. Run-time errors: 6 for more steps than a 16-bit counter holds, 7
/// where the tables would not fit in memory, and those of the variable's procedures; rows of earlier
/// bandwidths and the pointer stay.
///
/// A last step beyond the end of the range is computed there, but printed and stored as the end; it is meant
/// so. Afterwards CurrentSigma is the last bandwidth stored plus the step.
bool RunSweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
              const std::function<void(const std::string&)>& addRow);

/// What one bandwidth computes. All else that a sweep tells of it is worked out from this.
struct SweepStep {
    double Stat = 0;        // score statistic, or the largest M of an M variable
    double Chi = 0, DF = 0; // score variables
    double MaxM = 0;        // the adjusted variable: the largest M, beside the score
    Array1<double> Local;   // of each Region, from 1
    bool operator==(const SweepStep&) const = default;
};

/// The steps k of a sweep (from 0) with k mod Of = Number - 1: what one of several machines computes.
struct SweepShare {
    std::ptrdiff_t Number = 1, Of = 1;

    bool Holds(std::ptrdiff_t k) const { return k % Of == Number - 1; }
    std::ptrdiff_t CountOf(std::ptrdiff_t steps) const { return (steps - Number + Of) / Of; }
    bool operator==(const SweepShare&) const = default;
};

/// The same for a share of the steps: the bandwidths of the others are passed over, so that the results are
/// in every bit those of the whole sweep. Rows, tables and faults are those of the share.
bool RunSweepShare(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
                   const SweepShare& share, const std::function<void(const std::string&)>& addRow);

/// The whole sweep out of steps that were computed before; `step` gives step k (from 0), with NumRegion local
/// values. The tables of the weights are not made and need no memory.
bool JoinSweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
               const std::function<const SweepStep&(std::ptrdiff_t k)>& step,
               const std::function<void(const std::string&)>& addRow);

/// Step k of the last sweep (from 0), as it was computed.
SweepStep StepOfSweep(std::ptrdiff_t k);

/// Takes the local values of step k of the last sweep (from 0) into DisplayClassValues and DisplayDrawValues.
void TakeSweepValues(std::ptrdiff_t k);

/// Takes step k of the last sweep (from 0) for the map: its local values into DisplayClassValues and
/// DisplayDrawValues, its bandwidth into CurrentSigma.
void SelectSweepStep(std::ptrdiff_t k);

/// The rows of lstGlobalPatternSummary before its first step: the heading and a row of dashes.
constexpr std::ptrdiff_t SweepTitleRows = 2;

/// The step behind a row of lstGlobalPatternSummary; -1 for a heading or a row of dashes.
std::ptrdiff_t SweepStepOfRow(std::ptrdiff_t row);

/// The row of step k.
constexpr std::ptrdiff_t RowOfSweepStep(std::ptrdiff_t k) {
    return k + SweepTitleRows;
}

/// The captions of the two chart series: "Chi" and "Chi*", or "M" and "M*".
const char* SweepStatCaption(RetroVariable variable);
const char* SweepCriticalCaption(RetroVariable variable);
constexpr const char* BandwidthAxisTitle = "Bandwidth(Sigma)";

} // namespace vastrel
