#include "core/prospective/CusumRules.h"

namespace vastrel {

const CusumRules& PolygonCusumRules() {
    static constexpr CusumRules rules{
        .RunsFIR = false,
        .KeepsSavedPeriods = false,
        .SavesContinuedRun = false,
        .SavingCusumEndsSaving = true,
        .CancelledReportWarns = false,
        .ChartLabelsStopAtColumns = true,
        .FastDelay = 1,
        .RegionFlashes = 3,
        .PeriodCaption = "",
    };
    return rules;
}

const CusumRules& PointCusumRules() {
    static constexpr CusumRules rules{
        .RunsFIR = true,
        .KeepsSavedPeriods = true,
        .SavesContinuedRun = true,
        .SavingCusumEndsSaving = false,
        .CancelledReportWarns = true,
        .ChartLabelsStopAtColumns = false,
        .FastDelay = 10000,
        .RegionFlashes = 1,
        .PeriodCaption = "Period: ",
    };
    return rules;
}

bool Serves(const CusumRules& rules, StartOption start) {
    return start == StartOption::Zero || start == StartOption::Previous ||
           (start == StartOption::FIR && rules.RunsFIR);
}

} // namespace vastrel
