// The dense product against the plain loops and against OpenBLAS, single core against single core.
#include "Register.h"
#include "core/numeric/DenseProduct.h"
#include "core/numeric/InstructionSet.h"
#include "core/numeric/RowWorkers.h"
#include "support/PlainLoops.h"

#include <cblas.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace vastrel;

namespace {

constexpr int Sizes[] = {500, 1000, 2000, 3085};
constexpr int LargestPlain = 1000; // beyond, the plain loops take minutes; the table works their time out

struct Matrices {
    explicit Matrices(int size) : N(size), A(Random(1)), B(Random(2)), C(A.size()) {}

    MatrixView ViewOf(const std::vector<double>& values) const { return {values.data(), N, N, N}; }
    std::vector<double> Random(unsigned seed) const {
        std::vector<double> values(static_cast<size_t>(N) * static_cast<size_t>(N));
        std::mt19937 random(seed);
        std::generate(values.begin(), values.end(),
                      [&] { return std::uniform_real_distribution<double>(-1, 1)(random); });
        return values;
    }

    int N;
    std::vector<double> A, B, C;
};

template <typename Compute>
void Measure(benchmark::State& state, int n, Compute compute) {
    Matrices matrices(n);
    for (auto _ : state) {
        compute(matrices);
        benchmark::ClobberMemory();
    }
}

void Product(Matrices& m) {
    DenseProduct(m.ViewOf(m.A), m.ViewOf(m.B), m.C.data(), m.N);
}

void Gram(Matrices& m) {
    DenseGram(m.ViewOf(m.A), m.C.data(), m.N);
}

void Plain(Matrices& m) {
    PlainProduct(m.ViewOf(m.A), m.ViewOf(m.B), m.C.data(), m.N);
}

void OpenBlas(Matrices& m) {
    cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, m.N, m.N, m.N, 1, m.A.data(), m.N, m.B.data(), m.N,
                0, m.C.data(), m.N);
}

using Computation = void (*)(Matrices&);

Length LengthOf(int n) {
    return n > 2000 ? Length::Long : Length::Short;
}

/// The kernel on a forced machine.
void RegisterKernel(const std::string& group, Computation compute, const std::string& set, int workers,
                    int n) {
    Register(group + "/" + std::to_string(n) + "/" + set + "/" + std::to_string(workers), LengthOf(n),
             [=](benchmark::State& state) {
                 ForceInstructionSet(set);
                 ForceWorkers(workers);
                 Measure(state, n, compute);
                 ForceInstructionSet("");
                 ForceWorkers(0);
             });
}

void RegisterPeer(const std::string& name, Computation compute, int n) {
    Register("product/" + std::to_string(n) + "/" + name + "/1", LengthOf(n),
             [=](benchmark::State& state) { Measure(state, n, compute); });
}

const bool registered = [] {
    openblas_set_num_threads(1);
    const auto sets = OfferedInstructionSets();
    for (const int n : Sizes) {
        if (n <= LargestPlain) RegisterPeer("plain", Plain, n);
        RegisterPeer("openblas", OpenBlas, n);
        for (const auto& set : sets)
            RegisterKernel("product", Product, set, 1, n);
        RegisterKernel("product", Product, sets.front(), 2, n);
        for (const int workers : {1, 2})
            RegisterKernel("gram", Gram, sets.front(), workers, n);
    }
    return true;
}();

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::fflush(nullptr);
    std::_Exit(0); // the screens that were measured are not taken down in an order of their own
}
