// Where the time of one adjusted bandwidth goes: each of its steps, at random places and on a lattice, for
// several bandwidths.
#include "Register.h"
#include "core/numeric/DenseProduct.h"
#include "core/numeric/GaussianKernel.h"
#include "core/numeric/KernelRows.h"
#include "core/numeric/NeighbourOrder.h"
#include "core/retrospective/ScoreArithmetic.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <random>

using namespace vastrel;

namespace {

enum class Places { Random, Lattice };

Array1<RegionPoint> PlacesOf(Places places, int n) {
    Array1<RegionPoint> at(n);
    std::mt19937 random(8);
    std::uniform_real_distribution<double> place(0, std::sqrt(n));
    const int side = static_cast<int>(std::ceil(std::sqrt(n)));
    for (int i = 0; i < n; ++i)
        at(i + 1) = places == Places::Random
                        ? RegionPoint{"", place(random), place(random)}
                        : RegionPoint{"", static_cast<double>(i % side), static_cast<double>(i / side)};
    return at;
}

Array1<double> Shares(int n) {
    std::mt19937 random(9);
    std::lognormal_distribution<double> people(10, 1);
    Array1<double> shares(n);
    double total = 0;
    for (int i = 1; i <= n; ++i)
        total += shares(i) = people(random);
    for (int i = 1; i <= n; ++i)
        shares(i) /= total;
    return shares;
}

MatrixView ViewOf(const Table<double>& table) {
    return {table.row(0), table.UpperBound1() + 1, table.UpperBound2() + 1, table.stride()};
}

/// Leaves tables for those of a bandwidth, as the one before it does.
void GiveBackTables(int n) {
    std::array<Table<double>, 6> tables;
    for (auto& table : tables)
        table.ReDim(n, n);
    Pairs pairs;
    pairs.ReDimUnset(n);
    std::fill_n(pairs.All(), pairs.Count(), 0.0);
}

/// The seconds of a step go into the benchmark's counter of its name.
template <typename Step>
void Time(benchmark::State& state, const char* name, Step step) {
    const auto begin = std::chrono::steady_clock::now();
    step();
    state.counters[name] += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void Phases(benchmark::State& state, Places places, int n, double sigma) {
    const Array1<RegionPoint> at = PlacesOf(places, n);
    const Array1<double> shares = Shares(n);
    PairDistances distances;
    TakeDistances(at, n, distances);
    const VectorOrder order = NeighbourOrder(at, n);
    const TableMemoryScope scope;
    GiveBackTables(n);
    for (auto _ : state) {
        Table<double> w, gram, ordered, v, a, b(n - 1, n - 1);
        Array1<double> diagonal(n);
        Time(state, "kernel", [&] {
            KernelWeights kernel;
            GaussianKernel(distances.Squared, n, sigma, kernel);
            RowNormalise(kernel);
            w.ReDimUnset(n, n);
            PutWeights(kernel, w);
        });
        gram.ReDim(n - 1, n - 1);
        ordered.ReDim(n - 1, n - 1);
        Time(state, "Gram", [&] {
            DenseGram({w.row(1) + 1, n, n, w.stride()}, order, ordered.row(0), ordered.stride());
        });
        Time(state, "scaling", [&] {
            PutBack(ordered, order, gram);
            ScaleGramByShares(gram, shares, n, gram);
            v = ShareCovariance(shares, n);
        });
        Time(state, "P V",
             [&] { DenseProduct(ViewOf(gram), ViewOf(v), order, ordered.row(0), ordered.stride()); });
        a.ReDim(n - 1, n - 1);
        PutBack(ordered, order, a);
        Time(state, "A A", [&] { DenseProduct(ViewOf(a), ViewOf(a), b.row(0), b.stride()); });
        Time(state, "diagonal", [&] { DenseProductDiagonal(ViewOf(b), ViewOf(a), diagonal.data()); });
    }
}

void RegisterPhases(const char* name, Places places, int n, double sigma) {
    Register("phases/" + std::to_string(n) + "/" + name + " " + std::to_string(sigma).substr(0, 3) + "/all",
             Length::Long, [=](benchmark::State& state) { Phases(state, places, n, sigma); });
}

const bool registered = [] {
    for (const double sigma : {0.2, 0.6, 1.0, 2.0}) {
        RegisterPhases("random", Places::Random, 3085, sigma);
        RegisterPhases("lattice", Places::Lattice, 3085, sigma);
    }
    RegisterPhases("random", Places::Random, 1068, 1);
    RegisterPhases("random", Places::Random, 6000, 1);
    return true;
}();

} // namespace
