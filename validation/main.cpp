// Simulates how good the approximations of the tests are, and keeps the raw counts.
#include "core/platform/RunTimeError.h"
#include "validation/Study.h"
#include "validation/Workers.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

using namespace vastrel;
using namespace vastrel::validation;

namespace {

struct Options {
    std::string Folder = "validation/results", Samples = "samples", Only;
    double Hours = 2;
    long Most = 10'000;
    bool Quick = false;
    int Workers = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
};

constexpr long QuickReplications = 500;

/// Every cell is done with few replications first, so that a study that is stopped has something of
/// everything.
const std::vector<long>& Passes(const Options& options) {
    static const std::vector<long> quick{QuickReplications}, whole{1'000, 10'000};
    return options.Quick ? quick : whole;
}

class Clock {
public:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// False where the time is over before all is done.
bool RunPass(const std::vector<Cell>& cells, long pass, const Options& options, const Clock& clock,
             Results& results) {
    std::size_t done = 0;
    for (const auto& cell : cells) {
        ++done;
        const long replications = std::min({pass, cell.MostReplications, options.Most});
        if (results.ReplicationsOf(cell.Name) >= replications) continue;
        if (clock.Seconds() > options.Hours * 3600) return false;
        const Clock own;
        std::cerr << "[" << done << "/" << cells.size() << "] " << cell.Name << ", " << replications
                  << " replications" << std::flush;
        cell.Run(cell, replications, results);
        results.Finish(cell.Name, replications);
        std::cerr << ": " << Shown(own.Seconds(), 3) << " s" << std::endl;
    }
    return true;
}

void RunStudy(const Options& options) {
    UseWorkers(options.Workers);
    Results results(options.Folder);
    auto cells = options.Quick ? QuickStudy(options.Samples) : WholeStudy(options.Samples);
    std::erase_if(cells, [&](const Cell& cell) { return !cell.Name.starts_with(options.Only); });
    const Clock clock;
    for (const long pass : Passes(options))
        if (!RunPass(cells, pass, options, clock, results)) {
            std::cerr << "The time is over; another start goes on." << std::endl;
            return;
        }
    std::cerr << "All cells are done." << std::endl;
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): the parser's own set-up may be out of memory
int main(int argc, char** argv) {
    CLI::App program("Simulates how good the approximations of Vastrel's tests are. A second start goes on.");
    Options options;
    program.add_flag("--quick", options.Quick, "one small cell of each kind");
    program.add_option("--hours", options.Hours, "begin no further cell after this time")
        ->capture_default_str();
    program.add_option("--most", options.Most, "replications of a cell at most")->capture_default_str();
    program.add_option("--results", options.Folder, "folder of the raw counts")->capture_default_str();
    program.add_option("--samples", options.Samples, "folder of the sample datasets")->capture_default_str();
    program.add_option("--only", options.Only, "the cells whose names begin so");
    program.add_option("--workers", options.Workers, "threads")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    CLI11_PARSE(program, argc, argv);
    try {
        RunStudy(options);
        return 0;
    } catch (const RunTimeError& error) {
        std::cerr << "\nRun-time error " << error.Number() << " in " << error.Source() << ": "
                  << error.Description() << std::endl;
    } catch (const std::exception& error) {
        std::cerr << "\n" << error.what() << std::endl;
    }
    return 1;
}
