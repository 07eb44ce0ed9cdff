#include "WatchFlow.h"

#include "LayerCheck.h"
#include "core/layer/CsvTable.h"
#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumReport.h"
#include "core/prospective/CusumRows.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

CusumTexts TakeTexts(InputParts& parts) {
    CusumTexts texts;
    texts.K = parts.TakeLine();
    texts.H = parts.TakeLine();
    texts.Sigma = parts.TakeLine();
    return texts;
}

bool TakeParameters(const CusumTexts& texts) {
    if (!TakeCusumParameters(texts)) return false;
    TakeCusumSigma(texts.Sigma);
    return true;
}

void ShowResults(const CusumOutputs& run, const WatchRegions& regions,
                 const std::function<void(std::ptrdiff_t period)>& draw,
                 const std::function<Layer(ResultTable rows)>& layerOf) {
    const std::ptrdiff_t n = regions.Count, periods = regions.PeriodCount;
    ChartSet(periods, ws.HValue);
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        ChartUpdate(t, run.MaxCusum(t));
        PeriodRow(t, run.MaxCusum(t), run.MaxRegion(t));
        SignaledRows(run.Cusum, run.RegionLabel, t, SignaledRegions(run.Cusum, n, t, ws.HValue));
        draw(t);
    }
    CusumReport(run, n, periods);
    CusumFileLines(run.Cusum, n, periods);
    CsvText(WatchRowsByPeriod(regions));
    CheckLayer(layerOf(WatchRows(regions)));
}

} // namespace vastrel
