#include "batch/Command.h"
#include "batch/Outputs.h"
#include "batch/PolygonInput.h"
#include "core/export/ExportColumns.h"
#include "core/export/ExportDataset.h"
#include "core/spatial/Centroids.h"
#include "core/text/TextFile.h"

#include <memory>

namespace vastrel {

namespace {

struct ExportOptions {
    std::string File, Out, Option, Sigma;
    std::vector<std::string> Obs, Exp; // first and last column
};

ExportOption OptionOf(const std::string& text) {
    return text == "poisson"    ? ExportOption::Poisson
           : text == "standard" ? ExportOption::Standard
                                : ExportOption::Rossi;
}

/// The choices in the four lists of the screen, in their order. All columns have to exist before the first
/// is checked.
bool TakeColumns(const ExportOptions& options) {
    const std::pair<ExportList, int> choices[] = {{ExportList::ObsFrom, ColumnNumber(options.Obs[0])},
                                                  {ExportList::ObsTo, ColumnNumber(options.Obs[1])},
                                                  {ExportList::ExpFrom, ColumnNumber(options.Exp[0])},
                                                  {ExportList::ExpTo, ColumnNumber(options.Exp[1])}};
    for (const auto& [list, column] : choices)
        if (!TakeExportColumn(list, column)) return false;
    return true;
}

ExitStatus RunExport(const ExportOptions& options) {
    if (!OpenPolygonInput(options.File)) return ExitStatus::Refused;
    ComputeShapeAreas();
    ComputeCentroids();
    if (!TakeColumns(options) || !TakeExportSigma(options.Sigma)) return ExitStatus::Refused;
    ComputeExport(OptionOf(options.Option));
    Outputs outputs;
    outputs.Add(options.Out, JoinLines(ExportLines()));
    outputs.Write();
    return ExitStatus::Done;
}

} // namespace

void AddExport(CLI::App& program, const ProgramOptions&, RunCommand& run) {
    auto* command = program.add_subcommand("export", "z-values of count columns for the prospective test");
    auto options = std::make_shared<ExportOptions>();
    command->add_option("FILE", options->File, "a polygon shapefile (.shp)")->required();
    command->add_option("--obs", options->Obs, "first and last column of the observed counts")
        ->required()
        ->expected(2);
    command->add_option("--exp", options->Exp, "first and last column of the expected counts")
        ->required()
        ->expected(2);
    command->add_option("--option", options->Option, "poisson, standard or rossi")
        ->required()
        ->check(CLI::IsMember({"poisson", "standard", "rossi"}));
    command->add_option("--sigma", options->Sigma, "bandwidth")->required();
    command->add_option("--out", options->Out, "the file to write; - is standard output")->required();
    command->callback([options, &run] { run = [options] { return RunExport(*options); }; });
}

} // namespace vastrel
