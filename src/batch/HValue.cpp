#include "batch/Command.h"
#include "batch/ConsolePlatform.h"
#include "core/prospective/HValueCalculator.h"
#include "core/text/OutputSet.h"

#include <map>
#include <memory>

namespace vastrel {

namespace {

const std::map<std::string, HValueOption> Choices{{"overall", HValueOption::Overall},
                                                  {"bonferroni", HValueOption::Bonferroni},
                                                  {"spatial", HValueOption::Spatial}};

ExitStatus RunHValue(const std::string& choice, HValueTexts texts, const ConsolePlatform& console) {
    const auto result = HValueResult(Choices.at(choice), texts);
    if (result) WriteStandardOutput(*result + "\n");
    // Texts that are refused in silence give no result and no failure.
    return console.MessageCount() > 0 ? ExitStatus::Refused : ExitStatus::Done;
}

} // namespace

void AddHValue(CLI::App& program, const ProgramOptions& options, RunCommand& run) {
    auto* command = program.add_subcommand("h-value", "threshold h for a wanted in-control run length");
    struct Words : HValueTexts {
        std::string Choice;
    };
    auto words = std::make_shared<Words>();
    command->add_option("--option", words->Choice, "overall, bonferroni or spatial")
        ->required()
        ->check(CLI::IsMember(Choices));
    command->add_option("--k", words->K, "reference value")->required();
    command->add_option("--arl0", words->ARL0, "wanted in-control average run length")->required();
    command->add_option("--regions", words->NumRegion, "number of regions")->capture_default_str();
    command->add_option("--sigma", words->Sigma, "bandwidth of the spatial filter")->capture_default_str();
    command->callback([words, &options, &run] {
        run = [words, &options] { return RunHValue(words->Choice, *words, *options.Console); };
    });
}

} // namespace vastrel
