#pragma once

#include "validation/Cell.h"
#include "validation/Counts.h"

#include <memory>
#include <vector>

namespace vastrel::validation {

/// The default range of the sweep, and what lies on both sides of it.
struct Bandwidths {
    std::vector<double> Sigmas{0, 0.2, 0.4, 0.6, 0.8, 1, 1.2, 1.4, 1.6, 1.8, 2, 3};
    double RangeFrom = 0.2, RangeTo = 2;
};

/// How often the retrospective test takes each of its decisions where there is no cluster: false-alarms.csv,
/// and the values that are passed by 5 and 1 of 100 datasets without a cluster: critical-values.csv.
Cell FalseAlarms(const std::shared_ptr<const StudyMap>& map, CountModel model, double average,
                 const Bandwidths& bandwidths);

/// How often it takes them where there is one, for risks of 1.5 and 2 in discs of 1, 5 and 20 % of the
/// people: clusters.csv. Beside the rules of the program stands "above simulated 0.05": the largest value
/// over the range against its value from as many datasets without a cluster.
Cell Clusters(const std::shared_ptr<const StudyMap>& map, double average, const Bandwidths& bandwidths);

} // namespace vastrel::validation
