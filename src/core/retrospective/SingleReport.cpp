#include "core/retrospective/SingleReport.h"

#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ResultLists.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

using Rows = std::vector<std::string>;
using namespace RetroColumns;

constexpr int DashCount = 58;

/// The columns of the local table; the second id stands behind the first where two are used.
RetroLayout LocalLayout(bool score, bool twoIDs) {
    RetroLayout layout;
    auto& [heading, row] = layout;
    heading = twoIDs ? RetroFields{{"ID(1)", 15}, {"ID(2)", 13}} : RetroFields{{"ID", 15}};
    row = twoIDs ? RetroFields{{ID1, 15}, {ID2, 13}} : RetroFields{{ID1, 15}};
    heading.emplace_back(score ? "U(i)" : "M(i)", 10);
    row.emplace_back(Local, 10, "###0.00");
    if (score) {
        heading.emplace_back("Z[U(i)]", 10);
        row.emplace_back(Z, 10, "0.00");
    }
    heading.insert(heading.end(), {{"Observed", 10}, {"Expected", 10}});
    row.insert(row.end(), {{Obs, 10, "0.00"}, {Exp, 10, "0.00"}});
    return layout;
}

void AppendLocalTable(Rows& rows, const char* title, RetroVariable variable, const RetroRules& rules) {
    const RetroLayout layout = LocalLayout(MapsScore(variable), UsesTwoIDs(rules));
    const std::string dashes = Dashes(DashCount);
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
        Dashes(DashCount),
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
        Dashes(DashCount),
        "Maximum M-statistic = " + Num(MaxLocalM(), "0.000"),
        "M Critical (M*) = " + Num(MCritical(), "0.000"),
    };
    AppendLocalTable(rows, "Summary of Local M Statistic                         ", variable, rules);
    return rows;
}

} // namespace

Rows SingleReport(RetroVariable variable, const RetroRules& rules) {
    return MapsScore(variable) ? ScoreReport(variable, rules) : MReport(variable, rules);
}

} // namespace vastrel
