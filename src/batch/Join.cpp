#include "batch/Command.h"
#include "batch/FileRoles.h"
#include "batch/JoinedParts.h"
#include "batch/RetroOptions.h"
#include "batch/RunRecord.h"

#include <algorithm>
#include <memory>

namespace vastrel {

namespace {

using Words = std::vector<std::string>;

struct JoinOptions : RetroOutputs {
    Words Files;
};

/// The outputs that are asked of a command, as words of another one.
Words OutputWords(const CLI::App& command) {
    Words words;
    for (const CLI::Option* option : command.get_options())
        if (option->get_group() == OutputGroup && option->count() > 0)
            std::ranges::move(WordsOf(option->get_name(), option->results().front()),
                              std::back_inserter(words));
    return words;
}

/// The words of the run that the parts are of. Only settings of a test pass: a part is a file like any other.
Words RunWords(const CLI::App& program, const EarlierRun& run) {
    const auto commands =
        program.get_subcommands([&](const CLI::App* command) { return command->get_name() == run.Command; });
    Words words{run.Command}, files{"--"};
    for (const auto& [name, value] : run.Settings.items()) {
        const bool isFile = name == "FILE";
        const CLI::Option* option =
            commands.empty() ? nullptr : commands.front()->get_option_no_throw(isFile ? name : "--" + name);
        const bool isTest = option != nullptr && option->get_group() != OutputGroup &&
                            option != commands.front()->get_help_ptr() &&
                            option != commands.front()->get_version_ptr();
        if (!isTest || !value.is_string())
            throw InputRefused("The parts are of a run with the setting \"" + name +
                               "\", which there is not.");
        const auto text = value.get<std::string>();
        std::ranges::move(isFile ? Words{text} : WordsOf("--" + name, text),
                          std::back_inserter(isFile ? files : words));
    }
    std::ranges::move(files, std::back_inserter(words));
    return words;
}

/// Runs the command of the parts, with the outputs of this one, on their steps.
ExitStatus RunJoin(CLI::App& program, const CLI::App& command, const JoinOptions& options,
                   const ProgramOptions& programOptions, const RunCommand& run) {
    JoinedParts& parts = *programOptions.Parts;
    parts = JoinedParts(options.Files);
    Words words = RunWords(program, parts.Run());
    const Words outputs = OutputWords(command);
    words.insert(words.begin() + 1, outputs.begin(), outputs.end());
    std::reverse(words.begin(), words.end());
    try {
        program.parse(words);
    } catch (const CLI::ParseError& error) {
        throw InputRefused("The parts are of a run that there is not: " + std::string(error.what()));
    }
    RequireSeparateFiles(program);
    programOptions.Record->Begin(*program.get_subcommands().front());
    programOptions.Record->Expect(parts.Run().Inputs, true);
    return RunCommand(run)();
}

} // namespace

void AddJoin(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("join", "Puts the parts of a range together");
    auto options = std::make_shared<JoinOptions>();
    command->add_option("F", options->Files, "the files that --state has written, in any order")->required();
    options->AddTo(*command);
    command->callback([&program, command, options, &programOptions, &run] {
        run = [&program, command, options, &programOptions, &run] {
            return RunJoin(program, *command, *options, programOptions, run);
        };
    });
}

} // namespace vastrel
