#pragma once

#include "batch/Outputs.h"
#include "batch/RunRecord.h"
#include "batch/WatchOptions.h"
#include "core/prospective/CusumTables.h"

namespace vastrel {

/// A finished run as the two prospective commands write it. The chart is that of the store.
struct WatchRun {
    const CusumOutputs& Run;
    const Array1<std::string>& SignalLabels; // of the Regions that the list of signals goes through
    std::ptrdiff_t RegionCount;
    std::ptrdiff_t PeriodCount;
    double StudyArea;
    std::vector<std::string> PeriodRows; // all rows of lstPeriod
};

/// Adds the texts that the options ask for, the lists to standard output where they ask for nothing.
void AddWatchTexts(Outputs& outputs, const WatchOptions& options, const RunRecord& record,
                   const WatchRun& watch);

/// Adds the chart of the store.
void AddWatchChart(Outputs& outputs, const std::string& path);

} // namespace vastrel
