#include "batch/WatchResults.h"

#include "batch/Pictures.h"
#include "batch/RetroResults.h"
#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumReport.h"
#include "core/prospective/CusumRows.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

using Json = nlohmann::ordered_json;

namespace {

std::vector<std::ptrdiff_t> SignalsIn(const WatchRun& watch, std::ptrdiff_t period) {
    return SignaledRegions(watch.Run.Cusum, watch.SignalLabels.UpperBound(), period, ws.HValue);
}

std::string ListsOf(const WatchRun& watch) {
    auto rows = watch.PeriodRows;
    for (std::ptrdiff_t t = 1; t <= watch.PeriodCount; ++t) {
        const auto regions = SignalsIn(watch, t);
        if (regions.empty()) continue;
        rows.emplace_back();
        const auto signalled = SignaledRows(watch.Run.Cusum, watch.SignalLabels, t, regions);
        rows.insert(rows.end(), signalled.begin(), signalled.end());
    }
    return JoinLines(rows);
}

Json TextsFromOne(const Array1<std::string>& texts) {
    Json list = Json::array();
    for (std::ptrdiff_t i = 1; i <= texts.UpperBound(); ++i)
        list.push_back(texts(i));
    return list;
}

Json CusumsOf(const WatchRun& watch) {
    Json table = Json::array();
    for (std::ptrdiff_t i = 1; i <= watch.RegionCount; ++i) {
        Json region = Json::array();
        for (std::ptrdiff_t t = 1; t <= watch.PeriodCount; ++t)
            region.push_back(watch.Run.Cusum(i, t));
        table.push_back(std::move(region));
    }
    return table;
}

Json JsonOf(const WatchRun& watch) {
    Json json;
    json["NumRegion"] = watch.RegionCount;
    json["TotalShapeArea"] = watch.StudyArea;
    json["KValue"] = ws.KValue;
    json["HValue"] = ws.HValue;
    json["CurrentSigma"] = ws.CurrentSigma;
    json["Cusum"] = CusumsOf(watch);
    json["MaxCusum"] = FromOne(watch.Run.MaxCusum);
    json["MaxRegion"] = TextsFromOne(watch.Run.MaxRegion);
    json["RegionLabel"] = TextsFromOne(watch.Run.RegionLabel);
    Json signals = Json::array();
    for (std::ptrdiff_t t = 1; t <= watch.PeriodCount; ++t)
        signals.push_back(SignalsIn(watch, t));
    json["Signals"] = signals;
    Json chart = Json::array();
    for (std::ptrdiff_t row = 0; row <= ws.CusumChartData.UpperBound1(); ++row)
        chart.push_back({ws.CusumChartData(row, 0), ws.CusumChartData(row, 1)});
    json["CusumChartData"] = chart;
    json["ChartLabels"] = ws.CusumChartLabels;
    return json;
}

} // namespace

void AddWatchTexts(Outputs& outputs, const WatchOptions& options, const RunRecord& record,
                   const WatchRun& watch) {
    if (!options.Lists.empty() || options.AsksForNothing())
        outputs.Add(options.Lists.empty() ? "-" : options.Lists, ListsOf(watch));
    if (!options.Report.empty())
        outputs.Add(options.Report, JoinLines(CusumReport(watch.Run, watch.RegionCount, watch.PeriodCount)));
    if (!options.Json.empty()) outputs.Add(options.Json, JsonText(record.Header(), JsonOf(watch)));
}

void AddWatchChart(Outputs& outputs, const std::string& path) {
    if (path.empty()) return;
    outputs.Add(path, DrawChart(path, {ws.CusumChartData,
                                       ws.CusumChartLabels,
                                       {CusumSeriesCaption, ThresholdSeriesCaption},
                                       ""}));
}

} // namespace vastrel
