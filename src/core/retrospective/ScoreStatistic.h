#pragma once

#include "core/workspace/Arrays.h"

namespace vastrel {

// The score statistic for one bandwidth. Every procedure works on the store; after an arithmetic fault its
// outputs stand at zero.

/// U(i), Z[U(i)] and the global U from WeightUnadjusted: LocalU, LocalZ, GlobalU. U(i) also goes to
/// MapClassScore, MapDrawScore, DisplayClassValues and DisplayDrawValues.
/// A variance b - c of 0 is a division by zero, one below 0 an invalid operation.
void LocalScoreUnadjusted();

/// The same from WeightAdjusted: LocalUAdjusted, LocalZAdjusted, GlobalUAdjusted.
void LocalScoreAdjusted();

/// ScoreMean, ScoreVar and ScoreDF under the null hypothesis, from an N x N matrix with a zero base.
void ScoreMoments(const Table<double>& P);
void ScoreMomentsPlain();    // of ScoreGramPlain
void ScoreMomentsAdjusted(); // of ScoreGramAdjusted

/// ScoreZ and ScoreChi. The global U is scaled by the squared total of cases in the unadjusted form, by the
/// total once in the adjusted form; the difference is meant. ScoreVar = 0 is a division by zero.
void FinishScoreUnadjusted();
void FinishScoreAdjusted();

} // namespace vastrel
