#include "core/retrospective/RangeReport.h"

#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

using Rows = std::vector<std::string>;
using namespace RetroColumns;

constexpr int Dashes58 = 58;
constexpr int Dashes78 = 78;

struct RangeLayout {
    const char* Title = nullptr;
    RetroLayout Columns;
    int DashCount = 0;
};

RangeLayout RangeLayoutOf(RetroVariable variable, const RetroRules& rules) {
    const RetroLayout mColumns{{{"Sigma", 6}, {"M  ", 6}, {"M* ", 6}},
                               {{Sigma, 6, "0.000"}, {M, 6, "0.00"}, {MStar, 6, "0.00"}}};
    switch (variable) {
    case RetroVariable::Unadjusted:
        return {"A summary for a range of bandwidths (Score statistic - unadjusted)",
                {{{"Sigma", 6}, {"U-Stats", 12}, {"Chi", 12}, {"DF", 8}, {rules.PValueHeading, 16}},
                 {{Sigma, 6, "0.000"},
                  {Stat, 12, "0.00"},
                  {Chi, 12, "0.00"},
                  {DF, 8, "0.00"},
                  {P, 16, "0.000000000000"}}},
                Dashes58};
    case RetroVariable::AdjustedPoisson:
        return {"A summary for a range of bandwidths (Score statistic - adjusted)",
                {{{"Sigma", 6},
                  {"U-Stats", 12},
                  {"Chi ", 12},
                  {"DF  ", 8},
                  {"M  ", 6},
                  {"M* ", 6},
                  {rules.PValueHeading, 16}},
                 {{Sigma, 6, "0.000"},
                  {Stat, 12, "0.00"},
                  {Chi, 12, "0.00"},
                  {DF, 8, "0.00"},
                  {M, 6, "0.00"},
                  {MStar, 6, "0.00"},
                  {P, 16, "0.000000000000"}}},
                Dashes78};
    case RetroVariable::FreemanTukey:
        return {"A summary for a range of bandwidths (M statistic - standard)", mColumns, Dashes58};
    case RetroVariable::Rossi:
        break;
    }
    return {"A summary for a range of bandwidths (M statistic - Rossi)", mColumns, Dashes58};
}

RowValues StoredStep(RetroVariable variable, std::ptrdiff_t k) {
    RowValues values;
    values.Sigma = ws.BandwidthList(k);
    values.Stat = ws.SweepStat(k);
    values.Chi = ws.SweepChi(k);
    values.DF = ws.SweepDF(k);
    values.P = ws.SweepPValue(k);
    values.M = MapsScore(variable) ? ws.SweepMaxM(k) : ws.SweepStat(k);
    values.MCritical = ws.SweepMCritical(k);
    return values;
}

} // namespace

Rows RangeReport(RetroVariable variable, const RetroRules& rules) {
    const RangeLayout layout = RangeLayoutOf(variable, rules);
    const std::string dashes = Dashes(layout.DashCount);
    Rows rows{layout.Title, "", HeadingText(layout.Columns), dashes};
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k)
        rows.push_back(RowText(layout.Columns.Row, StoredStep(variable, k)));
    rows.push_back(dashes);
    return rows;
}

} // namespace vastrel
