#include "batch/Command.h"
#include "batch/ConsolePlatform.h"
#include "batch/FileRoles.h"
#include "batch/JoinedParts.h"
#include "batch/RunRecord.h"
#include "batch/Settings.h"
#include "batch/StandardStreams.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/text/OutputSet.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <new>
#include <sstream>

using namespace vastrel;

namespace {

constexpr AddCommand Commands[] = {AddRetrospectivePoints,
                                   AddRetrospectivePolygons,
                                   AddProspectivePoints,
                                   AddProspectivePolygons,
                                   AddExport,
                                   AddCentroids,
                                   AddPValue,
                                   AddHValue,
                                   AddAgain,
                                   AddJoin};

/// The words of the command line in the order that the parser takes, last first. The words of p-value stand
/// behind a "--", since they may begin with a minus sign. "--sigma=" is --sigma with an empty text, which the
/// parser would take from the next word.
std::vector<std::string> Words(int argc, char** argv) {
    std::vector<std::string> words;
    for (const std::string& word : std::vector<std::string>(argv + 1, argv + argc)) {
        const bool emptyValue = word.rfind("--", 0) == 0 && word.find('=') == word.size() - 1;
        words.push_back(emptyValue ? word.substr(0, word.size() - 1) : word);
        if (emptyValue) words.emplace_back();
    }
    const auto command =
        std::find_if(words.begin(), words.end(), [](const auto& word) { return word.rfind("-", 0) != 0; });
    const bool isPValue = command != words.end() && *command == PValueCommand;
    if (isPValue && words.end() - command > 1 && command[1].rfind("-", 0) != 0)
        words.insert(command + 1, "--");
    std::reverse(words.begin(), words.end());
    return words;
}

RunTimeError Named(long number, const std::exception& error) {
    return RunTimeError(number, "vastrel-batch", CustomaryText(number) + "\n" + error.what());
}

/// The configuration file that cannot be opened.
RunTimeError NoConfiguration(const CLI::App& program) {
    const std::string path = program.get_config_ptr()->as<std::string>();
    std::error_code ignored;
    return std::filesystem::is_directory(NativePath(path), ignored)
               ? RunTimeError(PathFileAccessError, "vastrel-batch", path + " is a folder, not a file.")
               : RunTimeError(FileNotFound, "vastrel-batch", CustomaryText(FileNotFound) + "\n" + path);
}

/// Prints the help or the version that was asked for, or what is wrong with the words.
ExitStatus ExitOf(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream output;
    const int code = program.exit(error, output, std::cerr);
    WriteStandardOutput(output.str());
    return code == 0 ? ExitStatus::Done : ExitStatus::WrongUse;
}

/// Parses the words and runs the chosen command, or prints what the parser has to say.
ExitStatus RunOrPrint(const CLI::App& program, const RunCommand& parseAndRun) {
    try {
        return parseAndRun();
    } catch (const CLI::FileError&) {
        throw;
    } catch (const CLI::ParseError& error) {
        return ExitOf(program, error);
    }
}

/// Parses the words and runs the chosen command, inside the one error boundary of the program.
ExitStatus RunGuarded(ConsolePlatform& console, const CLI::App& program, const RunCommand& parseAndRun) {
    try {
        return RunOrPrint(program, parseAndRun);
    } catch (const CLI::FileError&) {
        console.ReportRunTimeError(NoConfiguration(program));
    } catch (const WrongUse& wrong) {
        std::cerr << wrong.what() << '\n';
        return ExitStatus::WrongUse;
    } catch (const InputRefused& refused) {
        std::cerr << refused.what() << '\n';
        return ExitStatus::Refused;
    } catch (const RunTimeError& error) {
        console.ReportRunTimeError(error);
    } catch (const std::bad_alloc&) {
        console.ReportRunTimeError(RunTimeError(OutOfMemory, "vastrel-batch", CustomaryText(OutOfMemory)));
    } catch (const std::filesystem::filesystem_error& error) { // the current folder is gone, say
        console.ReportRunTimeError(Named(PathFileAccessError, error));
    } catch (const std::exception& error) {
        console.ReportRunTimeError(Named(InvalidProcedureCall, error));
    }
    return ExitStatus::RunTimeFailure;
}

/// The end of what no boundary can catch: an exception in the toolkit or in a second thread, which is too
/// little memory.
[[noreturn]] void EndForMemory() {
    std::cerr << ReportText(RunTimeError(OutOfMemory, "vastrel-batch", CustomaryText(OutOfMemory))) << '\n';
    std::_Exit(static_cast<int>(ExitStatus::RunTimeFailure));
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): the parser's own set-up may be out of memory
int main(int argc, char** argv) {
    HoldStandardStreams();
    std::set_terminate(EndForMemory);
    ConsolePlatform console;
    SetPlatform(&console);

    CLI::App program("Finds and watches spatial clusters in the counts of regions.", "vastrel-batch");
    ProgramOptions options;
    options.Console = &console;
    RunRecord record;
    options.Record = &record;
    JoinedParts parts;
    options.Parts = &parts;
    RunCommand run;
    program.set_version_flag("--version", "vastrel-batch " VASTREL_VERSION);
    program.add_flag("--quiet", options.Quiet, "no progress on standard error");
    program.set_config("--config", "", "settings of the command (TOML)")->take_all();
    program.config_formatter(std::make_shared<SettingsFile>(program));
    program.allow_config_extras(CLI::config_extras_mode::error);
    program.require_subcommand(1);
    program.fallthrough();
    for (const auto add : Commands)
        add(program, options, run);
    for (auto* command : program.get_subcommands({}))
        command->set_version_flag("--version", "vastrel-batch " VASTREL_VERSION);

    return static_cast<int>(RunGuarded(console, program, [&] {
        program.parse(Words(argc, argv));
        RequireSeparateFiles(program);
        record.Begin(*program.get_subcommands().front());
        return RunCommand(run)(); // a copy: again sets another
    }));
}
