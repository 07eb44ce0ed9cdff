#include "batch/WatchCommand.h"

#include "core/layer/CsvTable.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumRows.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

ExitStatus WatchCommand::Run() {
    if (!Load() || !TakeCusumParameters(options_.Parameters)) return ExitStatus::Refused;
    if (!RunTest()) return ExitStatus::Done;
    if (LooksLikeDegrees()) NoteDegrees(program_);
    AddOutputs();
    outputs_.Write();
    const bool telling = signals_ && options_.SignalStatus != 0;
    return telling ? static_cast<ExitStatus>(options_.SignalStatus) : ExitStatus::Done;
}

void WatchCommand::AddOutputs() {
    const CusumOutputs results = Results();
    const auto labels = SignalLabels();
    signals_ = !SignaledRegions(results.Cusum, labels.UpperBound(), PeriodCount(), ws.HValue).empty();
    AddWatchTexts(outputs_, options_, Record(),
                  {results, labels, RegionCount(), PeriodCount(), StudyArea(), PlayPeriods()});
    if (!options_.Cusum.empty())
        outputs_.Add(options_.Cusum,
                     JoinLines(CusumFileLines(results.Cusum, labels.UpperBound(), PeriodCount())));
    AddWatchChart(outputs_, options_.Chart);
    AddMaps();
    AddRows();
}

void WatchCommand::AddRows() {
    const LayerOptions& asked = options_.Layer;
    if (asked.AsksForNothing()) return;
    const WatchRegions regions = Regions();
    if (!asked.Layer.empty()) AddLayer(outputs_, asked.Layer, LayerOf(WatchRows(regions)), program_.Quiet);
    if (!asked.Table.empty()) outputs_.Add(asked.Table, CsvText(WatchRowsByPeriod(regions)));
}

/// The rows of the period list, with the chart filled beside them.
std::vector<std::string> WatchCommand::PlayPeriods() {
    BeginChart();
    auto rows = PeriodTitleRows();
    for (std::ptrdiff_t t = 1; t <= PeriodCount(); ++t)
        rows.push_back(PlayPeriod(t));
    rows.push_back(CusumDashes());
    return rows;
}

void WatchCommand::AddMaps() {
    if (options_.Maps.empty()) return;
    outputs_.AddFolder(options_.Maps);
    Progress progress(program_, PeriodCount());
    for (std::ptrdiff_t t = 1; t <= PeriodCount(); ++t) {
        const std::string path = PeriodPicture(options_.Maps, t, PeriodCount());
        outputs_.Add(path, PeriodMap(path, t));
        progress.StepDone();
    }
}

} // namespace vastrel
