#pragma once

#include "core/display/PlotSurface.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vastrel {

/// How the batch program ends.
enum class ExitStatus { Done = 0, WrongUse = 2, Refused = 3, RunTimeFailure = 4 };

/// Wrong use of the command line that the parser itself cannot see.
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Input that is refused in words of the batch program's own.
class InputRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class ConsolePlatform;
class JoinedParts;
class RunRecord;

/// Options of the whole program, the console that it runs on, what the run tells of itself, and the steps
/// that it need not compute.
struct ProgramOptions {
    bool Quiet = false;
    ConsolePlatform* Console = nullptr;
    RunRecord* Record = nullptr;
    JoinedParts* Parts = nullptr;
};

/// A subcommand adds itself to the program: its options, and what it does once they are parsed. `run` is set
/// by the subcommand that was chosen.
using RunCommand = std::function<ExitStatus()>;
using AddCommand = void (*)(CLI::App& program, const ProgramOptions& options, RunCommand& run);

void AddRetrospectivePoints(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddRetrospectivePolygons(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddProspectivePoints(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddProspectivePolygons(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddHValue(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddCentroids(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddExport(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddPValue(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddAgain(CLI::App& program, const ProgramOptions& options, RunCommand& run);
void AddJoin(CLI::App& program, const ProgramOptions& options, RunCommand& run);

/// The subcommand that makes an earlier run once more.
constexpr const char* AgainCommand = "again";

/// The subcommand whose words may begin with a minus sign.
constexpr const char* PValueCommand = "p-value";

/// The four sizes W,H,SW,SH of a plot surface, and their text; WrongUse for any other text.
SurfaceSize ParseSurface(const std::string& text);
std::string SurfaceText(const SurfaceSize& size);

/// The path made absolute, without "." and ".." between its folders, before anything else looks at it. The
/// empty path, of no file, stays empty.
std::string AbsolutePath(const std::string& path);

} // namespace vastrel
