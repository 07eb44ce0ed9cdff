#include "core/layer/RetroLayer.h"

#include "core/display/LegendClasses.h"
#include "core/display/PointMap.h"
#include "core/retrospective/ResultLists.h"

namespace vastrel {

namespace {

constexpr std::ptrdiff_t ColumnsBeforeSteps = 5; // ID, X, Y, OBS, EXP

/// Which Region a row belongs to.
using RegionOf = std::function<std::ptrdiff_t(std::ptrdiff_t row)>;

/// The value of each row's Region.
ResultColumn::Numbers ValuesOf(const Array1<double>& values, const RegionOf& region) {
    return [&values, region](std::ptrdiff_t row) { return values(region(row)); };
}

/// The columns with which the rows of a run begin.
void AddRegions(ResultTable& table, const RetroRules& rules, const RegionOf& region) {
    table.AddTexts("ID", [fromColumns = rules.IDsFromColumns, region](std::ptrdiff_t row) {
        return fromColumns ? ws.PrimaryIDs(region(row)) : ws.RegionCentroid(region(row)).ID;
    });
    if (UsesTwoIDs(rules))
        table.AddTexts("ID2", [region](std::ptrdiff_t row) { return ws.SecondaryIDs(region(row)); });
    table.AddNumbers("X", [region](std::ptrdiff_t row) { return ws.RegionCentroid(region(row)).X; });
    table.AddNumbers("Y", [region](std::ptrdiff_t row) { return ws.RegionCentroid(region(row)).Y; });
    table.AddNumbers("OBS", ValuesOf(ws.ObsCount, region));
    table.AddNumbers("EXP", ValuesOf(ws.ExpCount, region));
}

std::ptrdiff_t SameRegion(std::ptrdiff_t row) {
    return row;
}

void AddStatistics(ResultTable& table, RetroVariable variable) {
    const bool adjusted = variable == RetroVariable::AdjustedPoisson;
    if (MapsScore(variable)) {
        table.AddNumbers("U", ValuesOf(adjusted ? ws.LocalUAdjusted : ws.LocalU, SameRegion));
        table.AddNumbers("ZU", ValuesOf(adjusted ? ws.LocalZAdjusted : ws.LocalZ, SameRegion));
    }
    if (HasM(variable)) table.AddNumbers("M", ValuesOf(ws.LocalM, SameRegion));
}

} // namespace

ResultTable SingleRows(RetroVariable variable, const RetroRules& rules) {
    ResultTable table;
    table.RowCount = ws.NumRegion;
    AddRegions(table, rules, SameRegion);
    AddStatistics(table, variable);
    const Array1<double>& mapped = MapDrawValues(variable);
    const auto classOf = rules.IDsFromColumns ? ClassOf : PointClassOf;
    table.AddWholes("CLASS", [&mapped, classOf](std::ptrdiff_t row) { return classOf(mapped(row)); });
    return table;
}

ResultTable RangeRows(const RetroRules& rules) {
    ResultTable table;
    table.RowCount = ws.NumRegion;
    AddRegions(table, rules, SameRegion);
    for (std::ptrdiff_t step = 1; step <= ws.BandwidthCount; ++step)
        table.AddNumbers("S" + std::to_string(step),
                         [step](std::ptrdiff_t row) { return ws.StatisticTable(row, step - 1); });
    return table;
}

ResultTable RangeRowsByStep(const RetroRules& rules) {
    const std::ptrdiff_t steps = ws.BandwidthCount;
    const auto region = [steps](std::ptrdiff_t row) { return (row - 1) / steps + 1; };
    const auto step = [steps](std::ptrdiff_t row) { return (row - 1) % steps; };
    ResultTable table;
    table.RowCount = ws.NumRegion * steps;
    AddRegions(table, rules, region);
    table.AddWholes("STEP", [step](std::ptrdiff_t row) { return step(row) + 1; });
    table.AddNumbers("SIGMA", [step](std::ptrdiff_t row) { return ws.BandwidthList(step(row)); });
    table.AddNumbers(
        "STAT", [region, step](std::ptrdiff_t row) { return ws.StatisticTable(region(row), step(row)); });
    return table;
}

std::ptrdiff_t RangeColumnCount(bool twoIDs, std::ptrdiff_t steps) {
    return ColumnsBeforeSteps + (twoIDs ? 1 : 0) + steps;
}

Layer LayerOfStore(ResultTable rows, const RetroRules& rules) {
    return rules.IDsFromColumns ? PolygonLayer(std::move(rows)) : PointLayer(std::move(rows));
}

} // namespace vastrel
