#pragma once

#include "core/retrospective/RetroVariable.h"

namespace vastrel {

// The order in which a variable's procedures run.

/// What comes before a run: gives back the matrices of an earlier one, and makes sure that the peak of this
/// one fits in memory (run-time error 7 where it does not, whose description names the size).
void PrepareRun(RetroVariable variable);

/// Runs the procedures of a single bandwidth, CurrentSigma, for a variable. The matrices
/// go as soon as their last reader is done; the results stay.
void RunSingleProcedures(RetroVariable variable);

/// Runs the procedures of one step of a sweep. The adjusted variable takes its M statistic first here, last
/// in a single run, so that the display arrays end with other values; it is meant so.
void RunSweepProcedures(RetroVariable variable);

} // namespace vastrel
