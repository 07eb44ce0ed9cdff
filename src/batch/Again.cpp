#include "batch/Command.h"
#include "batch/ConsolePlatform.h"
#include "batch/FileRoles.h"
#include "batch/RunRecord.h"
#include "batch/Settings.h"
#include "core/text/DiskFile.h"
#include "core/text/WholeFile.h"

#include <algorithm>
#include <memory>
#include <sys/mman.h>

namespace vastrel {

namespace {

struct AgainOptions {
    std::string File;
    bool Strict = false;
};

/// A file without a name, in memory. The parser takes settings from a file alone, and the one that was given
/// may be a pipe, which is read once.
class UnnamedFile {
public:
    explicit UnnamedFile(std::string_view bytes)
        : file_(memfd_create("settings", MFD_CLOEXEC)),
          path_("/proc/self/fd/" + std::to_string(file_.Number())) {
        if (!file_) RaiseFileError("The settings", "cannot be kept in memory");
        WriteAll(file_.Number(), bytes, "The settings");
    }
    const std::string& Path() const { return path_; }

private:
    Descriptor file_;
    std::string path_;
};

/// Parses the words of the earlier command, whose settings are its configuration file, and runs it.
ExitStatus RunAgain(CLI::App& program, const AgainOptions& options, std::vector<std::string> words,
                    RunRecord& record, const RunCommand& run) {
    const bool strict = std::erase(words, "--strict") > 0 || options.Strict;
    const std::string text = ReadWholeFile(options.File);
    EarlierRun earlier = ReadEarlierRun(text);
    const auto commands = program.get_subcommands({});
    const bool isCommand = std::ranges::any_of(
        commands, [&](const CLI::App* command) { return command->get_name() == earlier.Command; });
    if (!isCommand || earlier.Command == AgainCommand)
        throw InputRefused("The settings are those of \"" + earlier.Command + "\", which is no command.");
    const UnnamedFile settings(text);
    words.insert(words.begin(), {earlier.Command, "--config", settings.Path()});
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
