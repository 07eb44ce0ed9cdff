#pragma once

#include "core/retrospective/RetroRules.h"

#include <string>
#include <vector>

namespace vastrel {

/// The rows of the two list boxes of a run with one bandwidth.
struct ResultLists {
    std::vector<std::string> Global; // lstGlobalPatternSummary
    std::vector<std::string> Local;  // lstLocalPatternSummary
};

/// The rows for the results in the store. The p-values, the critical values and the maximum M are taken here;
/// their run-time errors leave no list, and MCritical may show its message.
ResultLists FillLists(RetroVariable variable, const RetroRules& rules);

ResultLists FillListsScoreUnadjusted(const RetroRules& rules);
ResultLists FillListsScoreAdjusted(const RetroRules& rules);
ResultLists FillListsM(const RetroRules& rules);

/// Whether rows carry two ids.
bool UsesTwoIDs(const RetroRules& rules);

/// The values of Region i for a local row of a list or a report.
RowValues LocalRowValues(RetroVariable variable, const RetroRules& rules, std::ptrdiff_t i);

/// A p-value below this is not printed as a number.
constexpr double SmallP = 0.001;

} // namespace vastrel
