#include "core/retrospective/RetroReport.h"

#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ResultLists.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

using Rows = std::vector<std::string>;
using Fields = std::vector<RowField>;

constexpr auto ID1 = &RowValues::ID1, ID2 = &RowValues::ID2;
constexpr auto Local = &RowValues::Local, Z = &RowValues::Z, Obs = &RowValues::Obs, Exp = &RowValues::Exp;
constexpr auto Sigma = &RowValues::Sigma, Stat = &RowValues::Stat, Chi = &RowValues::Chi, DF = &RowValues::DF,
               P = &RowValues::P, M = &RowValues::M, MStar = &RowValues::MCritical;

constexpr int Dashes58 = 58;
constexpr int Dashes78 = 78;

// ---- One bandwidth

/// The columns of the local table; the second id stands behind the first where two are used.
RowLayout LocalLayout(bool score, bool twoIDs) {
    RowLayout layout;
    auto& [heading, row] = layout;
    heading = twoIDs ? Fields{{"ID(1)", 15}, {"ID(2)", 13}} : Fields{{"ID", 15}};
    row = twoIDs ? Fields{{ID1, 15}, {ID2, 13}} : Fields{{ID1, 15}};
    heading.push_back({score ? "U(i)" : "M(i)", 10});
    row.push_back({Local, 10, "###0.00"});
    if (score) {
        heading.push_back({"Z[U(i)]", 10});
        row.push_back({Z, 10, "0.00"});
    }
    heading.insert(heading.end(), {{"Observed", 10}, {"Expected", 10}});
    row.insert(row.end(), {{Obs, 10, "0.00"}, {Exp, 10, "0.00"}});
    return layout;
}

void AppendLocalTable(Rows& rows, const char* title, RetroVariable variable, const RetroRules& rules) {
    const RowLayout layout = LocalLayout(MapsScore(variable), rules.ReadsSecondaryID && ws.bUseSecondaryID);
    const std::string dashes = Dashes(Dashes58);
    rows.insert(rows.end(), {dashes, "", title, dashes, HeadingText(layout), dashes});
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        rows.push_back(RowText(layout.Row, LocalRowValues(variable, rules, i)));
    rows.push_back(dashes);
}

/// The titles of the adjusted report name M values that it does not hold; it is meant so.
Rows ScoreReport(RetroVariable variable, const RetroRules& rules) {
    const bool adjusted = variable == RetroVariable::AdjustedPoisson;
    Rows rows{
        adjusted ? "Summary of Global Score and Maximum M Statistic                         "
                 : "Summary of Global Score Statistic                         ",
        Dashes(Dashes58),
        adjusted ? "U-statistic (adjusted) = " + Num(ws.GlobalUAdjusted, "0.000")
                 : "U-statistic (unadjusted) = " + Num(ws.GlobalU, "0.000"),
        "A chi-squared approximation = " + Num(ws.ScoreChi, "0.000"),
        "Degree of Freedom = " + Num(ws.ScoreDF, "0.000"),
        "   ---> p-value: " + Num(ChiSquarePValue(ws.ScoreChi, ws.ScoreDF), "0.0000"),
        "A normal approximation = " + Num(ws.ScoreZ, "0.000"),
        "   ---> p-value: " + Num(NormalPValue(ws.ScoreZ), "0.0000"),
    };
    AppendLocalTable(rows,
                     adjusted ? "Summary of Local Score and M Statistic                         "
                              : "Summary of Local Score Statistic                         ",
                     variable, rules);
    return rows;
}

Rows MReport(RetroVariable variable, const RetroRules& rules) {
    Rows rows{
        variable == RetroVariable::Rossi ? "Summary of Maximum M Statistic (Rossi)                    "
                                         : "Summary of Maximum M Statistic (Standard)                 ",
        Dashes(Dashes58),
        "Maximum M-statistic = " + Num(MaxLocalM(), "0.000"),
        "M Critical (M*) = " + Num(MCritical(), "0.000"),
    };
    AppendLocalTable(rows, "Summary of Local M Statistic                         ", variable, rules);
    return rows;
}

// ---- A range of bandwidths

struct RangeLayout {
    const char* Title;
    RowLayout Columns;
    int DashCount;
};

RangeLayout RangeLayoutOf(RetroVariable variable, const RetroRules& rules) {
    const RowLayout mColumns{{{"Sigma", 6}, {"M  ", 6}, {"M* ", 6}},
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

Rows SingleReport(RetroVariable variable, const RetroRules& rules) {
    return MapsScore(variable) ? ScoreReport(variable, rules) : MReport(variable, rules);
}

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
