#pragma once

#include "core/prospective/CusumEngine.h"

#include <string>

namespace vastrel {

/// The dataset of a prospective run on points, with its results. The screen owns it: nothing of it is in the
/// store but the number of ids (NumTextRegion) and the plotted positions, from which the study area comes.
struct PointCusum {
    // ID, X-Y file
    Array1<std::string> RegionIDs;
    Array1<double> RegionX, RegionY;

    // New z-scores
    std::ptrdiff_t N = 0; // Regions: lines of the ids file, then of the z-score file
    Table<double> ZScore; // (Region, period)
    std::ptrdiff_t ZColumnCount = 0;
    std::ptrdiff_t NewPeriodCount = 0; // set when a load has ended without a fault

    // Saved cusum table
    Table<double> OldCusum; // (row, period)
    std::ptrdiff_t OldRowCount = 0;
    std::ptrdiff_t OldColumnCount = 0;
    std::ptrdiff_t OldPeriodCount = 0; // set when a load has ended without a fault

    // Results of a run from Zero or FIR: the new periods
    Table<double> CusumNew;
    Array1<double> MaxNew;
    Array1<std::string> MaxRegionNew, LabelNew;

    // Results of a run from Previous: the saved periods, then the new ones
    Table<double> CusumAll;
    Array1<double> MaxAll;
    Array1<std::string> MaxRegionAll, LabelAll;

    double StudyArea = 0; // of the last run, in square map units

    /// The results that belong to a start option: those for all periods with Previous, else the new ones.
    CusumOutputs Outputs(StartOption start);
    std::ptrdiff_t PeriodCount(StartOption start) const;
};

/// The run: weights, filter, recursion, with KValue, HValue and CurrentSigma of the store. The weights have N
/// Regions, the z-scores' number of lines; the study area comes from all points of the ids file as they were
/// plotted last. Nothing happens without a start option.
///
/// Run-time errors: those of PointStudyArea and of the engine; 9 for more z-score lines than ids, and for a
/// saved table of another number of rows. The results stand at zero, or empty, after an error.
void RunPointCusum(PointCusum& watch, StartOption start);

} // namespace vastrel
