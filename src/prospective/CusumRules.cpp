#include "prospective/CusumRules.h"

namespace vastrel {

const CusumRules& PolygonCusumRules() {
    static constexpr CusumRules rules{
        .RunsFIR = false,
        .KeepsSavedPeriods = false,
        .NamesSavedMaxima = false,
        .DropsSavedRowsBeyondN = true,
        .SavesContinuedRun = false,
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
        .NamesSavedMaxima = true,
        .DropsSavedRowsBeyondN = false,
        .SavesContinuedRun = true,
        .ChartLabelsStopAtColumns = false,
        .FastDelay = 10000,
        .RegionFlashes = 1,
        .PeriodCaption = "Period: ",
    };
    return rules;
}

} // namespace vastrel
