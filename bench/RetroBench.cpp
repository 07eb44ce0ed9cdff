// What an analyst waits for in the retrospective test: sweeps over the default bandwidths, and the p-value.
#include "Register.h"
#include "core/numeric/RowWorkers.h"
#include "core/platform/Platform.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/Sweep.h"
#include "core/workspace/Workspace.h"
#include "support/PlainRetrospective.h"

#include <cmath>
#include <random>

using namespace vastrel;

namespace {

/// A platform that nobody sits at.
class SilentPlatform : public Platform {
public:
    SilentPlatform() { SetPlatform(this); }
    void ShowMessage(const Message&) override {}
    FileChoice ChooseFile(const FileQuestion&) override { return {}; }
    void SetBusyPointer(bool) override {}
    void DropInput() override {}
    void Yield(long) override {}
    void ReportRunTimeError(const RunTimeError&) override {}
    void EndProcess(int) override {}
    std::string ProgramFolder() override { return {}; }
} platformOfTheBench;

/// n Regions at random places in a square of n square units, with populations from a few to very many people
/// and cases by chance.
void TakeSyntheticRegions(int n) {
    ws = Workspace{};
    ws.bShapefileData = true;
    ws.NumRegion = n;
    ws.TotalShapeArea = n;
    ws.AlphaLevel = 0.05;
    ws.RegionCentroid.ReDim(n);
    for (auto* counts : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        counts->ReDim(n);
    std::mt19937 random(8);
    std::uniform_real_distribution<double> place(0, std::sqrt(n));
    std::lognormal_distribution<double> people(10, 1);
    for (int i = 1; i <= n; ++i) {
        ws.RegionCentroid(i) = {std::to_string(i), place(random), place(random)};
        ws.PopBase(i) = std::round(people(random)) + 1;
        ws.ObsCount(i) = std::poisson_distribution<int>(ws.PopBase(i) / 1000)(random);
        ws.TotalPop += ws.PopBase(i);
        ws.TotalObs += ws.ObsCount(i);
    }
    for (int i = 1; i <= n; ++i) {
        ws.ExpRatio(i) = ws.PopBase(i) / ws.TotalPop;
        ws.ExpCount(i) = ws.TotalObs * ws.PopBase(i) / ws.TotalPop;
    }
}

struct NamedVariable {
    const char* Name;
    RetroVariable Variable;
};

constexpr NamedVariable Variables[] = {{"unadjusted", RetroVariable::Unadjusted},
                                       {"adjusted", RetroVariable::AdjustedPoisson},
                                       {"freeman-tukey", RetroVariable::FreemanTukey},
                                       {"rossi", RetroVariable::Rossi}};

void Sweep(benchmark::State& state, RetroVariable variable, int n, int workers) {
    TakeSyntheticRegions(n);
    ForceWorkers(workers);
    for (auto _ : state) {
        ws.Distances = {}; // a sweep on a dataset that was just opened
        RunSweep(variable, {"0.2", "2.0", "0.2"}, PolygonRules(), [](const std::string&) {});
    }
    ForceWorkers(0);
}

void RegisterSweep(const NamedVariable& variable, int n, int workers, Length length) {
    const std::string cores = workers == 0 ? "all" : std::to_string(workers);
    Register("sweep/" + std::to_string(n) + "/" + variable.Name + "/" + cores, length,
             [=](benchmark::State& state) { Sweep(state, variable.Variable, n, workers); });
}

/// One bandwidth of a dataset that was just opened, by the program and by the plain loops.
void Bandwidth(benchmark::State& state, int n) {
    TakeSyntheticRegions(n);
    ws.CurrentSigma = 1;
    for (auto _ : state) {
        ws.Distances = {};
        RunSweepProcedures(RetroVariable::AdjustedPoisson);
    }
}

void PlainBandwidth(benchmark::State& state, int n) {
    TakeSyntheticRegions(n);
    ws.CurrentSigma = 1;
    for (auto _ : state)
        PlainSingle(RetroVariable::AdjustedPoisson, ws);
}

void NormalP(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(NormalPValue(3));
}

void PlainNormalP(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(PlainNormalPValue(3));
}

/// The sizes that are swept, with all workers (0) or with one, and how long the scores take; M takes less.
constexpr struct {
    int Regions, Workers;
    Length OfScores;
} Sweeps[] = {{1068, 0, Length::Long},
              {1068, 1, Length::Long},
              {3085, 0, Length::Long},
              {3085, 1, Length::VeryLong},
              {6000, 0, Length::VeryLong}};

const bool registered = [] {
    for (const auto& variable : Variables)
        for (const auto& [n, workers, ofScores] : Sweeps)
            RegisterSweep(variable, n, workers, MapsScore(variable.Variable) ? ofScores : Length::Long);
    for (const int n : {250, 500, 1000, 1500, 2000, 3085})
        Register("bandwidth/" + std::to_string(n) + "/adjusted/all", n < 1000 ? Length::Short : Length::Long,
                 [n](benchmark::State& state) { Bandwidth(state, n); });
    for (const int n : {250, 500, 1000})
        Register("bandwidth/" + std::to_string(n) + "/plain/1", n < 500 ? Length::Short : Length::VeryLong,
                 [n](benchmark::State& state) { PlainBandwidth(state, n); });
    return Register("p-value/3/normal/1", Length::Short, NormalP) &&
           Register("p-value/3/plain/1", Length::Short, PlainNormalP);
}();

} // namespace
