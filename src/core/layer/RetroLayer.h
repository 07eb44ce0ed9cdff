#pragma once

#include "core/layer/Layer.h"
#include "core/retrospective/RetroRules.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

// The results of a retrospective run in the store, as layers and tables. They are valid for as long as the
// store stays as it is.

/// A row a Region after a run of one bandwidth: ID, ID2 where the dataset has one, X, Y, OBS, EXP, what the
/// variable computes (U, ZU, M), and CLASS, the class of the Region on the map by the legend in force.
ResultTable SingleRows(RetroVariable variable, const RetroRules& rules);

/// A row a Region after a range of bandwidths: the same up to EXP, then S1, S2, ...: the local statistic of
/// each step.
ResultTable RangeRows(const RetroRules& rules);

/// The same in long form, a row a Region and step, Region after Region: up to EXP, then STEP from 1, SIGMA
/// and STAT.
ResultTable RangeRowsByStep(const RetroRules& rules);

/// The columns of RangeRows for a number of steps.
std::ptrdiff_t RangeColumnCount(bool twoIDs, std::ptrdiff_t steps);

/// The rows with the Regions where they lie: the polygons or points of the store.
Layer LayerOfStore(ResultTable rows, const RetroRules& rules);

} // namespace vastrel
