#include "batch/Command.h"
#include "batch/ConsolePlatform.h"
#include "batch/FileRoles.h"
#include "batch/RunRecord.h"
#include "batch/Settings.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <fstream>
#include <memory>

namespace vastrel {

namespace {

struct AgainOptions {
    std::string File;
    bool Strict = false;
};

EarlierRun ReadEarlierFile(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(NativePath(path), ignored))
        RaiseCustomary(PathFileAccessError, "again", path + " is a folder, not a file.");
    std::ifstream stream(NativePath(path), std::ios::binary);
    if (!stream) RaiseCustomary(FileNotFound, "again", path);
    return ReadEarlierRun(stream);
}

/// Parses the words of the earlier command, whose settings are its configuration file, and runs it.
ExitStatus RunAgain(CLI::App& program, const AgainOptions& options, std::vector<std::string> words,
                    RunRecord& record, const RunCommand& run) {
    const bool strict = std::erase(words, "--strict") > 0 || options.Strict;
    EarlierRun earlier = ReadEarlierFile(options.File);
    const auto commands = program.get_subcommands({});
    const bool isCommand = std::ranges::any_of(
        commands, [&](const CLI::App* command) { return command->get_name() == earlier.Command; });
    if (!isCommand || earlier.Command == AgainCommand)
        throw InputRefused("The settings are those of \"" + earlier.Command + "\", which is no command.");
    words.insert(words.begin(), {earlier.Command, "--config", options.File});
    std::reverse(words.begin(), words.end());
    program.parse(words);
    RequireSeparateFiles(program, true);
    record.Begin(*program.get_subcommands().front());
    record.Expect(std::move(earlier.Inputs), strict);
    return RunCommand(run)();
}

} // namespace

void AddAgain(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand(AgainCommand, "Once more, with the settings in the JSON of a run");
    auto options = std::make_shared<AgainOptions>();
    command->add_option("FILE", options->File, "the JSON; options that go before its settings follow")
        ->required();
    command->add_flag("--strict", options->Strict, "refuse input that is not what it was");
    command->prefix_command();
    command->fallthrough(false);
    command->callback([&program, command, options, &programOptions, &run] {
        run = [&program, command, options, &programOptions, &run] {
            return RunAgain(program, *options, command->remaining(), *programOptions.Record, run);
        };
    });
}

} // namespace vastrel
