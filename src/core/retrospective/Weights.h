#pragma once

namespace vastrel {

/// The kernel matrices of the score statistic for CurrentSigma: WeightUnadjusted, WeightAdjusted,
/// ScoreGramPlain and ScoreGramAdjusted. Needs RegionCentroid, ExpCount and ExpRatio.
///
/// For a point dataset NumRegion and TotalShapeArea are taken first, from NumTextRegion and PointStudyArea.
/// Run-time errors: 6 for more Regions than a 16-bit counter holds, and the arithmetic faults: a study area
/// of 0 with a pair of Regions, an expected count or share of 0 or below. After an error the matrices stand
/// at zero.
void BuildScoreWeights();

/// The row-normalised kernel of the M statistic, WeightM. Needs RegionCentroid; the first step and the errors
/// are those of BuildScoreWeights, the expected counts apart.
void BuildMWeights();

/// The first step of both builders: NumRegion and TotalShapeArea of a point dataset. The values of a polygon
/// dataset stay as the data input made them.
void TakePointDataset();

/// Its NumRegion alone.
void TakePointCount();

/// How many N x N tables a run holds at most, beginnings counted whole: the score statistic four and half of
/// one for the distances, the M statistic half of one each for the distances and for its kernel.
constexpr int TablesOfScoreWeights = 5;
constexpr int TablesOfMWeights = 1;

constexpr int TablesOfRun(bool score) {
    return score ? TablesOfScoreWeights : TablesOfMWeights;
}

/// Run-time error 7 where tables of N x N doubles, and `further` bytes beside them, would not fit in memory,
/// less the distances that are kept already; 6 for more Regions than a 16-bit counter holds. To be asked
/// once, before a run or a sweep.
void RequireMemoryForTables(int tables, double further);

} // namespace vastrel
