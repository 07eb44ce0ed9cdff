#include "batch/ConsolePlatform.h"
#include "batch/Program.h"
#include "batch/StandardStreams.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/text/OutputSet.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <new>
#include <sstream>

using namespace vastrel;

namespace {

RunTimeError Named(long number, const std::exception& error) {
    return RunTimeError(number, "vastrel-batch", CustomaryText(number) + "\n" + error.what());
}

/// The configuration file that cannot be opened.
RunTimeError NoConfiguration(const CLI::App& program) {
    const auto path = program.get_config_ptr()->as<std::string>();
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

    Program program(console);
    return static_cast<int>(RunGuarded(console, program.Parser(), [&] {
        return program.Run({argv + 1, argv + argc});
    }));
}
