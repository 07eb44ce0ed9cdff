#pragma once

#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/RetroRules.h"

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

/// Takes the local values of step k of the last sweep (from 0) into DisplayClassValues and DisplayDrawValues.
void TakeSweepValues(std::ptrdiff_t k);

/// Takes step k of the last sweep (from 0) for the map: its local values into DisplayClassValues and
/// DisplayDrawValues, its bandwidth into CurrentSigma.
void SelectSweepStep(std::ptrdiff_t k);

/// The step behind a row of lstGlobalPatternSummary; -1 for a heading or a row of dashes.
std::ptrdiff_t SweepStepOfRow(std::ptrdiff_t row);

/// The captions of the two chart series: "Chi" and "Chi*", or "M" and "M*".
const char* SweepStatCaption(RetroVariable variable);
const char* SweepCriticalCaption(RetroVariable variable);
constexpr const char* BandwidthAxisTitle = "Bandwidth(Sigma)";

} // namespace vastrel
