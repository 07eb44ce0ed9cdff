#include "batch/RetroResults.h"

#include "core/display/LegendClasses.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

using Json = nlohmann::ordered_json;

Json FromOne(const Array1<double>& values) {
    Json list = Json::array();
    for (std::ptrdiff_t i = 1; i <= values.UpperBound(); ++i)
        list.push_back(values(i));
    return list;
}

Json FromZero(const Array1<double>& values, std::ptrdiff_t count) {
    Json list = Json::array();
    for (std::ptrdiff_t i = 0; i < count; ++i)
        list.push_back(values(i));
    return list;
}

namespace {

/// The ids as the lists show them; the second one where it was chosen.
void AddRegionIDs(Json& json) {
    auto& first = json["RegionID"] = Json::array();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        first.push_back(ws.bTextfileData ? ws.RegionCentroid(i).ID : ws.PrimaryIDs(i));
    if (ws.bTextfileData || !ws.bUseSecondaryID) return;
    auto& second = json["RegionID2"] = Json::array();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        second.push_back(ws.SecondaryIDs(i));
}

} // namespace

Json DatasetJson() {
    Json json;
    json["NumRegion"] = ws.NumRegion;
    AddRegionIDs(json);
    json["TotalShapeArea"] = ws.TotalShapeArea;
    Json centroids = Json::array();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        centroids.push_back({ws.RegionCentroid(i).X, ws.RegionCentroid(i).Y});
    json["RegionCentroid"] = centroids;
    json["ObsCount"] = FromOne(ws.ObsCount);
    json["ExpCount"] = FromOne(ws.ExpCount);
    json["ExpRatio"] = FromOne(ws.ExpRatio);
    json["TotalObs"] = ws.TotalObs;
    json["TotalPop"] = ws.TotalPop;
    json["AlphaLevel"] = ws.AlphaLevel;
    return json;
}

namespace {

void AddScore(Json& json, RetroVariable variable) {
    const bool adjusted = variable == RetroVariable::AdjustedPoisson;
    const std::string suffix = adjusted ? "Adjusted" : "";
    json["LocalU" + suffix] = FromOne(adjusted ? ws.LocalUAdjusted : ws.LocalU);
    json["LocalZ" + suffix] = FromOne(adjusted ? ws.LocalZAdjusted : ws.LocalZ);
    json["GlobalU" + suffix] = adjusted ? ws.GlobalUAdjusted : ws.GlobalU;
    json["ScoreMean"] = ws.ScoreMean;
    json["ScoreVar"] = ws.ScoreVar;
    json["ScoreDF"] = ws.ScoreDF;
    json["ScoreZ"] = ws.ScoreZ;
    json["ScoreChi"] = ws.ScoreChi;
    json["ChiPValue"] = ChiSquarePValue(ws.ScoreChi, ws.ScoreDF);
    json["NormalPValue"] = NormalPValue(ws.ScoreZ);
    json["ChiCritical"] = ChiCritical(ws.AlphaLevel, ws.ScoreDF);
}

void AddM(Json& json, RetroVariable variable) {
    json["LocalM"] = FromOne(ws.LocalM);
    json["MaxLocalM"] = MaxLocalM();
    json["MCritical"] = MCriticalValue().value_or(0); // the message was shown by the run
    switch (variable) {
    case RetroVariable::AdjustedPoisson:
        json["DevPearson"] = FromOne(ws.DevPearson);
        break;
    case RetroVariable::FreemanTukey:
        json["DevFreemanTukey"] = FromOne(ws.DevFreemanTukey);
        break;
    default:
        json["DevRossi"] = FromOne(ws.DevRossi);
    }
}

} // namespace

void AddSingleJson(Json& json, RetroVariable variable) {
    json["CurrentSigma"] = ws.CurrentSigma;
    if (MapsScore(variable)) AddScore(json, variable);
    if (HasM(variable)) AddM(json, variable);
}

void AddLegendJson(Json& json, const Array1<double>& values, const std::function<int(double)>& classOf,
                   const std::vector<std::string>& legendTexts) {
    Json limits = Json::array();
    for (int i = 1; i <= LegendLimitCount + 1; ++i)
        limits.push_back(ws.LegendLimits(i));
    json["LegendLimits"] = limits;
    Json classes = Json::array();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        classes.push_back(classOf(values(i)));
    json["ClassOf"] = classes;
    json["LegendTexts"] = legendTexts;
}

void AddSweepJson(Json& json) {
    const std::ptrdiff_t steps = ws.BandwidthCount;
    const std::pair<const char*, const Array1<double>*> series[] = {
        {"BandwidthList", &ws.BandwidthList},
        {"SweepStat", &ws.SweepStat},
        {"SweepChi", &ws.SweepChi},
        {"SweepChiCritical", &ws.SweepChiCritical},
        {"SweepDF", &ws.SweepDF},
        {"SweepPValue", &ws.SweepPValue},
        {"SweepMaxM", &ws.SweepMaxM},
        {"SweepMCritical", &ws.SweepMCritical}};
    for (const auto& [key, values] : series)
        json[key] = FromZero(*values, steps);
    Json table = Json::array();
    Json chart = Json::array();
    for (std::ptrdiff_t k = 0; k < steps; ++k) {
        Json step = Json::array();
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
            step.push_back(ws.StatisticTable(i, k));
        table.push_back(step);
        chart.push_back({ws.ChartData(k, 0), ws.ChartData(k, 1)});
    }
    json["StatisticTable"] = table;
    json["ChartData"] = chart;
    json["ChartLabels"] = ws.ChartLabels;
}

std::string JsonText(const Json& header, const Json& results) {
    // A path need not be UTF-8; what is not is replaced.
    const auto dump = [](const Json& value) {
        return value.dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    std::string text;
    for (const Json* part : {&header, &results})
        for (const auto& [key, value] : part->items())
            text += (text.empty() ? "{\n " : ",\n ") + dump(key) + ": " + dump(value);
    return text + "\n}\n";
}

std::string ListsText(const std::vector<std::string>& first, const std::vector<std::string>& second) {
    auto rows = first;
    rows.emplace_back();
    rows.insert(rows.end(), second.begin(), second.end());
    return JoinLines(rows);
}

} // namespace vastrel
