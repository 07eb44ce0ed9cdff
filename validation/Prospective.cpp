#include "validation/Prospective.h"

#include "validation/RunLengthEquation.h"
#include "validation/Workers.h"

#include <array>

namespace vastrel::validation {

namespace {

constexpr double UsualK = 0.5;
constexpr double UsualARL0 = 500;
constexpr double LimitOfARL0 = 40; // a run ends without a signal after so many times the wanted run length

struct Option {
    const char* Name;
    HValueOption Choice;
};
constexpr std::array<Option, 3> Options{{{"overall", HValueOption::Overall},
                                         {"bonferroni", HValueOption::Bonferroni},
                                         {"spatial", HValueOption::Spatial}}};

/// An option of the calculator with one of the two ways to start.
struct NamedAlarm {
    std::string Option, Start;
    Alarm At;
};

std::vector<NamedAlarm> Alarms(const StudyMap& map, double arl0, double sigma, bool withFIR) {
    std::vector<NamedAlarm> alarms;
    for (const auto& option : Options) {
        if (map.Count() == 1 && option.Choice != HValueOption::Overall) continue; // all options are one
        const double h = CalculatedH(option.Choice, UsualK, arl0, static_cast<double>(map.Count()), sigma);
        alarms.push_back({option.Name, "zero", {h, 0}});
        if (withFIR) alarms.push_back({option.Name, "FIR", {h, h / 2}});
    }
    return alarms;
}

/// Sums of run lengths; those without a signal count with the limit.
struct Lengths {
    long Replications = 0, Unfinished = 0;
    double Periods = 0, Squares = 0;

    void Add(long first, long limit) {
        ++Replications;
        Unfinished += first == 0 ? 1 : 0;
        const auto length = static_cast<double>(first == 0 ? limit : first);
        Periods += length;
        Squares += length * length;
    }
    void Add(const Lengths& other) {
        Replications += other.Replications;
        Unfinished += other.Unfinished;
        Periods += other.Periods;
        Squares += other.Squares;
    }
};

constexpr long RunsOfAPart = 25;

std::vector<Lengths> RunMany(const std::string& stream, const WatchedMap& watched,
                             const std::vector<NamedAlarm>& alarms, long replications) {
    const Watch watch(watched);
    std::vector<Alarm> levels;
    levels.reserve(alarms.size());
    for (const auto& alarm : alarms)
        levels.push_back(alarm.At);
    const long partCount = (replications + RunsOfAPart - 1) / RunsOfAPart;
    std::vector<std::vector<Lengths>> parts(static_cast<std::size_t>(partCount),
                                            std::vector<Lengths>(alarms.size()));
    RunParts(partCount, [&](long part) {
        RandomNumbers random(stream, static_cast<std::uint64_t>(part));
        for (long run = part * RunsOfAPart; run < std::min(replications, (part + 1) * RunsOfAPart); ++run) {
            const auto first = watch.FirstSignals(levels, random);
            for (std::size_t a = 0; a < first.size(); ++a)
                parts[static_cast<std::size_t>(part)][a].Add(first[a], watched.Limit);
        }
    });
    std::vector<Lengths> all(alarms.size());
    for (const auto& part : parts)
        for (std::size_t a = 0; a < all.size(); ++a)
            all[a].Add(part[a]);
    return all;
}

using Row = Results::Row;

void AddLengths(const std::string& file, const std::string& head, const Row& of,
                const std::vector<NamedAlarm>& alarms, const std::vector<Lengths>& lengths, long limit,
                Results& results) {
    for (std::size_t a = 0; a < alarms.size(); ++a) {
        Row row = of;
        for (const auto& field :
             {alarms[a].Option, Shown(alarms[a].At.H), alarms[a].Start,
              std::to_string(lengths[a].Replications), Shown(lengths[a].Periods, 15),
              Shown(lengths[a].Squares, 15), std::to_string(lengths[a].Unfinished), std::to_string(limit)})
            row.push_back(field);
        results.Add(file, head + "option,h,start,replications,periods,squares,unfinished,limit", row);
    }
}

/// Runs a cell of simulated run lengths and adds its rows to a file.
void RunCell(const Cell& cell, const WatchedMap& watched, double arl0, bool withFIR, long replications,
             const std::string& file, const std::string& head, const Row& of, Results& results) {
    WatchedMap limited = watched;
    limited.Limit = static_cast<long>(LimitOfARL0 * arl0);
    const auto alarms = Alarms(*watched.Map, arl0, watched.Sigma, withFIR);
    const auto lengths = RunMany(cell.Name, limited, alarms, replications);
    AddLengths(file, head, of, alarms, lengths, limited.Limit, results);
}

const char* NameOf(ExportOption transform) {
    switch (transform) {
    case ExportOption::Poisson:
        return "poisson";
    case ExportOption::Standard:
        return "standard";
    case ExportOption::Rossi:
        return "rossi";
    case ExportOption::None:
        break;
    }
    return "none";
}

} // namespace

Cell OneRegion() {
    return {"one region", 1, [](const Cell&, long, Results& results) {
                for (const double k : {0.25, 0.5, 0.75, 1.0})
                    for (const double arl0 : {100, 200, 370, 500, 1000, 2000, 5000, 10000}) {
                        const double h = CalculatedH(HValueOption::Overall, k, arl0, 1, 0);
                        results.Add("one-region.csv", "k,arl0,h,run_length,run_length_fir,h_exact",
                                    {Shown(k), Shown(arl0), Shown(h), Shown(AverageRunLength(k, h), 6),
                                     Shown(AverageRunLength(k, h, h / 2), 6),
                                     Shown(ThresholdFor(k, arl0), 5)});
                    }
            }};
}

Cell MapRunLength(const std::shared_ptr<const StudyMap>& map, double sigma, double arl0,
                  long mostReplications) {
    const Row of{map->Name, std::to_string(map->Count()), Shown(UsualK), Shown(arl0), Shown(sigma)};
    return {"run length " + map->Name + " sigma " + Shown(sigma) + " arl0 " + Shown(arl0), mostReplications,
            [=](const Cell& cell, long replications, Results& results) {
                RunCell(cell, {map.get(), sigma, UsualK, {}, {}, 0, 0}, arl0, true, replications,
                        "run-lengths.csv", "map,regions,k,arl0,sigma,", of, results);
            }};
}

Cell Delays(const std::shared_ptr<const StudyMap>& map, double sigma, double shift, double share,
            long mostReplications) {
    const auto raised = share == 0 ? std::vector<std::ptrdiff_t>{MiddleRegion(*map)} : Disc(*map, share);
    const Row of{map->Name,     std::to_string(map->Count()),
                 Shown(UsualK), Shown(UsualARL0),
                 Shown(sigma),  Shown(shift),
                 Shown(share),  std::to_string(raised.size())};
    return {
        "delay " + map->Name + " sigma " + Shown(sigma) + " shift " + Shown(shift) + " share " + Shown(share),
        mostReplications, [=](const Cell& cell, long replications, Results& results) {
            RunCell(cell, {map.get(), sigma, UsualK, {}, raised, shift, 0}, UsualARL0, false, replications,
                    "delays.csv", "map,regions,k,arl0,sigma,shift,share,raised,", of, results);
        }};
}

Cell CountRunLength(const std::shared_ptr<const StudyMap>& map, double sigma, ExportOption transform,
                    double expected, long mostReplications) {
    const Row of{map->Name,         std::to_string(map->Count()),
                 NameOf(transform), Shown(expected),
                 Shown(UsualK),     Shown(UsualARL0),
                 Shown(sigma)};
    return {"counts " + map->Name + " " + NameOf(transform) + " expected " + Shown(expected) + " sigma " +
                Shown(sigma),
            mostReplications, [=](const Cell& cell, long replications, Results& results) {
                RunCell(cell, {map.get(), sigma, UsualK, {transform, expected}, {}, 0, 0}, UsualARL0, false,
                        replications, "count-run-lengths.csv", "map,regions,transform,expected,k,arl0,sigma,",
                        of, results);
            }};
}

std::shared_ptr<const StudyMap> OneRegionMap() {
    auto map = std::make_shared<StudyMap>(GridMap(1));
    map->Name = "one-region";
    return map;
}

} // namespace vastrel::validation
