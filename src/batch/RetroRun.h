#pragma once

#include "batch/Degrees.h"
#include "batch/Outputs.h"
#include "batch/Progress.h"
#include "batch/RetroResults.h"
#include "batch/RunRecord.h"
#include "core/retrospective/ResultLists.h"
#include "core/retrospective/Sweep.h"

#include <optional>

namespace vastrel {

/// One call of a retrospective command: what its screen does from Run to Save, in the screen's order. How the
/// commands on points and on polygons differ stands in their rules and in the steps below.
class RetroRun {
public:
    RetroRun(const RetroOptions& options, const ProgramOptions& program, const RetroRules& rules);
    virtual ~RetroRun() = default;

    ExitStatus Run();

protected:
    /// Takes the dataset into the store; false where it is refused, after its message.
    virtual bool Load() = 0;

    virtual bool LooksLikeDegrees() const = 0;

    /// The dataset as the test left it.
    virtual nlohmann::ordered_json Dataset() const { return DatasetJson(); }

    /// The picture of these local values by the legend in force.
    virtual std::string MapPicture(const std::string& path, const Array1<double>& values) = 0;

    /// The class of a value on this map, and the texts of its legend.
    virtual int ClassOfValue(double value) const = 0;
    virtual std::vector<std::string> LegendTexts() const = 0;

    RetroVariable Variable() const { return variable_; }
    RunRecord& Record() const { return *program_.Record; }

private:
    void BeginSteps(std::ptrdiff_t count);
    bool RunSingle();
    bool RunRange();
    bool RunSteps(const std::function<void(const std::string&)>& addRow);
    SweepShare Share() const;
    void AddMap(const Array1<double>& values);
    void AddChart();
    void AddTexts(const ResultLists& lists, const nlohmann::ordered_json& json);
    void AddReport();
    void AddRows();

    const RetroOptions& options_;
    const ProgramOptions& program_;
    const RetroRules& rules_;
    RetroVariable variable_;
    Outputs outputs_;
    std::optional<Progress> progress_;
};

/// The range texts of a score variable's legend, from the limits in force.
std::vector<std::string> RangeTexts();

} // namespace vastrel
