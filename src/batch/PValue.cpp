#include "batch/Command.h"
#include "batch/ConsolePlatform.h"
#include "core/retrospective/PValueCalculator.h"
#include "core/text/OutputSet.h"

#include <memory>

namespace vastrel {

namespace {

ExitStatus RunPValue(const std::vector<std::string>& words, const ConsolePlatform& console) {
    std::optional<std::string> result;
    if (words.size() == 2 && words[0] == "normal")
        result = NormalResult(words[1]);
    else if (words.size() == 3 && words[0] == "chi-square")
        result = ChiSquareResult(words[1], words[2]);
    else
        throw WrongUse("p-value takes normal Z, or chi-square CHI DF.");
    if (result) WriteStandardOutput(*result + "\n");
    // Texts that are refused in silence give no result and no failure.
    return console.MessageCount() > 0 ? ExitStatus::Refused : ExitStatus::Done;
}

} // namespace

void AddPValue(CLI::App& program, const ProgramOptions& options, RunCommand& run) {
    auto* command = program.add_subcommand(PValueCommand, "p-value of a z-score or of a chi-squared value");
    auto words = std::make_shared<std::vector<std::string>>();
    command->add_option("WORDS", *words, "normal Z | chi-square CHI DF")->required();
    command->callback(
        [words, &options, &run] { run = [=, &options] { return RunPValue(*words, *options.Console); }; });
}

} // namespace vastrel
