#include "core/prospective/PointCusum.h"

#include "core/spatial/StudyArea.h"

namespace vastrel {

CusumOutputs PointCusum::Outputs(StartOption start) {
    if (start == StartOption::Previous) return {CusumAll, MaxAll, MaxRegionAll, LabelAll};
    return {CusumNew, MaxNew, MaxRegionNew, LabelNew};
}

std::ptrdiff_t PointCusum::PeriodCount(StartOption start) const {
    return start == StartOption::Previous ? OldPeriodCount + NewPeriodCount : NewPeriodCount;
}

void RunPointCusum(PointCusum& watch, StartOption start) {
    if (!Serves(PointCusumRules(), start)) return;
    const CusumOutputs outputs = watch.Outputs(start);
    outputs.ReDim(watch.N, watch.PeriodCount(start));
    watch.StudyArea = PointStudyArea();
    const auto filtered = FilterZScores(
        BuildCusumWeights(watch.RegionX, watch.RegionY, watch.N, watch.StudyArea, ws.CurrentSigma),
        watch.ZScore, watch.N, watch.NewPeriodCount);
    if (start == StartOption::Previous)
        ContinueCusum(PointCusumRules(), filtered, watch.N, watch.NewPeriodCount, ws.KValue,
                      {watch.OldCusum, watch.OldRowCount, watch.OldPeriodCount}, watch.RegionIDs, outputs);
    else
        RunCusum(filtered, watch.N, watch.NewPeriodCount, ws.KValue,
                 start == StartOption::FIR ? ws.HValue / 2 : 0, watch.RegionIDs, outputs);
}

} // namespace vastrel
