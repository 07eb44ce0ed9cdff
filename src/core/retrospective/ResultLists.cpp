#include "core/retrospective/ResultLists.h"

#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

using Rows = std::vector<std::string>;

std::string Valued(const char* label, double value, const char* pattern = "0.000") {
    return label + Num(value, pattern);
}

constexpr const char* SmallPRow = "   ---> p-value < 0.001";
std::string PRow(double p) {
    return Valued("   ---> p-value = ", p, "0.0000");
}

Rows GlobalScoreRows(const std::string& statistic) {
    const double pc = ChiSquarePValue(ws.ScoreChi, ws.ScoreDF);
    const double pn = NormalPValue(ws.ScoreZ);
    Rows rows{"",
              statistic,
              "",
              Valued("A chi-squared approximation = ", ws.ScoreChi),
              Valued("Degree of Freedom = ", ws.ScoreDF),
              Valued("Critical Value = ", ChiCritical(ws.AlphaLevel, ws.ScoreDF)),
              pc < SmallP ? SmallPRow : PRow(pc),
              "",
              Valued("A normal approximation = ", ws.ScoreZ)};
    if (!(pn < SmallP))
        rows.push_back(PRow(pn));
    else if (pc < SmallP) // the test of pc, not of pn, is meant: otherwise there is no row at all
        rows.push_back(SmallPRow);
    return rows;
}

void AppendM(Rows& rows, const char* label) {
    const double maximum = MaxLocalM();
    const double critical = MCritical();
    for (const auto& row : {std::string(), Valued(label, maximum), std::string(),
                            Valued("M Critical (M*) = ", critical), std::string()})
        rows.push_back(row);
}

Rows LocalRows(RetroVariable variable, const RetroLayout& layout, const RetroRules& rules) {
    const std::string dashes = Dashes(82);
    Rows rows{dashes, HeadingText(layout), dashes};
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        rows.push_back(RowText(layout.Row, LocalRowValues(variable, rules, i)));
    rows.push_back(dashes);
    return rows;
}

Rows LocalScoreRows(RetroVariable variable, const RetroRules& rules) {
    const bool adjusted = variable == RetroVariable::AdjustedPoisson;
    return LocalRows(variable, UsesTwoIDs(rules) ? rules.ScoreTwoIDs : rules.ScoreOneID[adjusted ? 1 : 0],
                     rules);
}

} // namespace

bool UsesTwoIDs(const RetroRules& rules) {
    return rules.ReadsSecondaryID && ws.bUseSecondaryID;
}

RowValues LocalRowValues(RetroVariable variable, const RetroRules& rules, std::ptrdiff_t i) {
    RowValues values;
    values.ID1 = rules.IDsFromColumns ? ws.PrimaryIDs(i) : ws.RegionCentroid(i).ID;
    if (UsesTwoIDs(rules)) values.ID2 = ws.SecondaryIDs(i);
    values.Obs = ws.ObsCount(i);
    values.Exp = ws.ExpCount(i);
    switch (variable) {
    case RetroVariable::Unadjusted:
        values.Local = ws.LocalU(i);
        values.Z = ws.LocalZ(i);
        break;
    case RetroVariable::AdjustedPoisson:
        values.Local = ws.LocalUAdjusted(i);
        values.Z = ws.LocalZAdjusted(i);
        break;
    default:
        values.Local = ws.LocalM(i);
    }
    return values;
}

ResultLists FillListsScoreUnadjusted(const RetroRules& rules) {
    return {GlobalScoreRows(Valued("U-statistic (unadjusted) = ", ws.GlobalU)),
            LocalScoreRows(RetroVariable::Unadjusted, rules)};
}

ResultLists FillListsScoreAdjusted(const RetroRules& rules) {
    Rows global = GlobalScoreRows(Valued("U statistic (adjusted) = ", ws.GlobalUAdjusted));
    AppendM(global, "Maximum M statistic = ");
    return {global, LocalScoreRows(RetroVariable::AdjustedPoisson, rules)};
}

ResultLists FillListsM(const RetroRules& rules) {
    Rows global;
    AppendM(global, "Maximum M-statistic = ");
    const RetroLayout& layout = UsesTwoIDs(rules) ? rules.MTwoIDs : rules.MOneID;
    return {global, LocalRows(RetroVariable::FreemanTukey, layout, rules)};
}

ResultLists FillLists(RetroVariable variable, const RetroRules& rules) {
    switch (variable) {
    case RetroVariable::Unadjusted:
        return FillListsScoreUnadjusted(rules);
    case RetroVariable::AdjustedPoisson:
        return FillListsScoreAdjusted(rules);
    default:
        return FillListsM(rules);
    }
}

} // namespace vastrel
