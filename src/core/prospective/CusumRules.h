#pragma once

namespace vastrel {

/// How the sums of a prospective run start.
enum class StartOption {
    None,     // not chosen: nothing runs
    Zero,     // at 0
    FIR,      // at half the threshold: fast initial response
    Previous, // at the last saved cusum of each Region
};

/// Where the prospective test on polygons and on points differ. The differences are meant.
struct CusumRules {
    bool RunsFIR;                  // a start from h / 2 is served
    bool KeepsSavedPeriods;        // a continued run holds the saved periods in front of the new ones
    bool SavesContinuedRun;        // the cusums of a continued run can be saved again
    bool SavingCusumEndsSaving;    // both save buttons are disabled behind it
    bool CancelledReportWarns;     // a cancel of the report's dialog is told like an empty name
    bool ChartLabelsStopAtColumns; // in a continued run, where the indices of the chosen columns say
    long FastDelay;                // yields between two periods; the other speeds are alike
    int RegionFlashes;             // of a Region that is picked in the list
    const char* PeriodCaption;     // what stands before the number of the period on show
};

const CusumRules& PolygonCusumRules();
const CusumRules& PointCusumRules();

/// A run begins from this start option.
bool Serves(const CusumRules& rules, StartOption start);

/// Yields between two periods at the other two speeds.
constexpr long MediumDelay = 120000;
constexpr long SlowDelay = 300000;

} // namespace vastrel
