#pragma once

#include "batch/Command.h"
#include "batch/JoinedParts.h"
#include "batch/RunRecord.h"

namespace vastrel {

/// The command line of the batch program: the parser with all commands, and the run of the one that the words
/// choose.
class Program {
public:
    explicit Program(ConsolePlatform& console);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    const CLI::App& Parser() const { return parser_; }

    /// Parses the words behind the program's name, once, and runs the chosen command. Throws what the parser
    /// has to say (CLI::ParseError), WrongUse, InputRefused and run-time errors.
    ExitStatus Run(const std::vector<std::string>& words);

private:
    CLI::App parser_{"Finds and watches spatial clusters in the counts of regions.", "vastrel-batch"};
    RunRecord record_;
    JoinedParts parts_;
    ProgramOptions options_;
    RunCommand run_;
};

} // namespace vastrel
