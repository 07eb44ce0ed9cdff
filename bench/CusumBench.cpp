// The filter of the prospective test.
#include "Register.h"
#include "core/prospective/CusumEngine.h"
#include "support/PlainLoops.h"

#include <cmath>
#include <random>

using namespace vastrel;

namespace {

constexpr int Regions = 3085;
constexpr int Periods = 400;

struct Watch {
    Watch() : Z(Regions, Periods) {
        std::mt19937 random(9);
        std::uniform_real_distribution<double> place(0, std::sqrt(Regions));
        std::normal_distribution<double> score;
        Array1<double> x(Regions), y(Regions);
        for (int i = 1; i <= Regions; ++i) {
            x(i) = place(random);
            y(i) = place(random);
            for (int t = 1; t <= Periods; ++t)
                Z(i, t) = score(random);
        }
        Weights = BuildCusumWeights(x, y, Regions, Regions, 1);
    }

    Table<double> Z, Weights;
};

void Filter(benchmark::State& state) {
    const Watch watch;
    for (auto _ : state)
        benchmark::DoNotOptimize(FilterZScores(watch.Weights, watch.Z, Regions, Periods));
}

void PlainFilter(benchmark::State& state) {
    const Watch watch;
    Table<double> filtered(Regions, Periods);
    for (auto _ : state)
        PlainProduct({watch.Weights.row(1) + 1, Regions, Regions, watch.Weights.stride()},
                     {watch.Z.row(1) + 1, Regions, Periods, watch.Z.stride()}, filtered.row(1) + 1,
                     filtered.stride());
}

const bool registered = Register("filter/3085/cusum/all", Length::Short, Filter) &&
                        Register("filter/3085/plain/1", Length::VeryLong, PlainFilter);

} // namespace
