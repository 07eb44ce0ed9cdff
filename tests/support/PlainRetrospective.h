#pragma once

#include "core/retrospective/RetroVariable.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

// The retrospective test worked out in the order of its definitions, with whole matrices and plain loops: no
// blocking, no symmetry, nothing kept from one bandwidth to the next, one thread. The results of the program
// have to equal these in every bit.

/// The row-normalised kernel, 1..N, for w.CurrentSigma.
Table<double> PlainWeights(const Workspace& w);

/// The results of a single bandwidth, w.CurrentSigma, from the dataset in w into w.
void PlainSingle(RetroVariable variable, Workspace& w);

/// The results of a sweep from its typed values, the chart's labels apart.
void PlainSweep(RetroVariable variable, double from, double to, double step, Workspace& w);

/// The trapezoid rule from |z| down to 0, two densities an interval.
double PlainNormalPValue(double z);

} // namespace vastrel
