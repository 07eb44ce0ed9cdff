#pragma once

#include "batch/Degrees.h"
#include "batch/Progress.h"
#include "batch/RunRecord.h"
#include "batch/WatchResults.h"
#include "core/layer/WatchLayer.h"

namespace vastrel {

/// One call of a prospective command: what its screen does from the choice of the data to its Save buttons,
/// in the screen's order. How the commands on points and on polygons differ stands in the steps below.
class WatchCommand {
public:
    WatchCommand(const WatchOptions& options, const ProgramOptions& program)
        : options_(options), program_(program) {}
    virtual ~WatchCommand() = default;

    ExitStatus Run();

protected:
    /// What comes before the parameters; false where the data are refused, after the message.
    virtual bool Load() = 0;

    virtual bool LooksLikeDegrees() const = 0;

    /// The run itself; false where there is nothing to run on, and nothing is told.
    virtual bool RunTest() = 0;

    virtual CusumOutputs Results() = 0;
    virtual std::ptrdiff_t RegionCount() const = 0;
    virtual std::ptrdiff_t PeriodCount() const = 0;
    virtual double StudyArea() const = 0;

    /// The labels in the list of the Regions that signal. The list and the cusum file go through the Regions
    /// that have one: all points, and the polygons that have a record.
    virtual Array1<std::string> SignalLabels() = 0;

    /// Prepares the chart; puts a period into it and gives the row of the period.
    virtual void BeginChart() = 0;
    virtual std::string PlayPeriod(std::ptrdiff_t t) = 0;

    /// The Regions with their results as rows, and such rows where the Regions lie.
    virtual WatchRegions Regions() = 0;
    virtual Layer LayerOf(ResultTable rows) const = 0;

    /// The picture of a period.
    virtual std::string PeriodMap(const std::string& path, std::ptrdiff_t t) = 0;

    RunRecord& Record() const { return *program_.Record; }

private:
    std::vector<std::string> PlayPeriods();
    void AddOutputs();
    void AddMaps();
    void AddRows();

    const WatchOptions& options_;
    const ProgramOptions& program_;
    Outputs outputs_;
    bool signals_ = false; // in the last period
};

} // namespace vastrel
