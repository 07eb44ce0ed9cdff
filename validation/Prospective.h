#pragma once

#include "validation/Cell.h"
#include "validation/Watch.h"

#include <memory>

namespace vastrel::validation {

/// The run length of one region at the h of the calculator, from the integral equation: one-region.csv.
Cell OneRegion();

/// The run length of a map until the first signal anywhere, at the h of each option of the calculator,
/// without an outbreak: run-lengths.csv.
Cell MapRunLength(const std::shared_ptr<const StudyMap>& map, double sigma, double arl0,
                  long mostReplications);

/// How long it takes until the first signal where the scores of the region in the middle, or of a disc of 5 %
/// of the people, are raised from the first period on: delays.csv.
Cell Delays(const std::shared_ptr<const StudyMap>& map, double sigma, double shift, double share,
            long mostReplications);

/// The run length where the scores are transformed counts: of one region, or of a map: count-run-lengths.csv.
Cell CountRunLength(const std::shared_ptr<const StudyMap>& map, double sigma, ExportOption transform,
                    double expected, long mostReplications);

/// The one region of such a run.
std::shared_ptr<const StudyMap> OneRegionMap();

} // namespace vastrel::validation
