// What the machine can do at best: multiplications and additions in its registers, and passes over memory.
#include "Register.h"
#include "core/numeric/InstructionSet.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/Vectors.h"
#include "core/workspace/Arrays.h"

#include <thread>

using namespace vastrel;

namespace {

constexpr long Steps = 1'000'000;

/// Steps of `Sums` separate multiplications and additions of vectors: so many that no addition waits for
/// another. The one body for all instruction sets.
template <int Bytes, int Sums>
[[gnu::always_inline]] inline double Multiply() {
    using Vector = typename VectorOf<Bytes>::Doubles;
    Vector sum[Sums];
    for (int i = 0; i < Sums; ++i)
        sum[i] = Vector{} + i;
    for (long step = 0; step < Steps; ++step)
#pragma GCC unroll 24
        for (int i = 0; i < Sums; ++i)
            sum[i] = sum[i] + sum[(i + 1) % Sums] * 1e-9;
    double all = 0;
    for (int i = 0; i < Sums; ++i)
        all += sum[i][0];
    return all;
}

struct Kernel {
    const char* Set;
    double (*Run)();
    int OperationsOfAStep;
};

#if defined(__x86_64__)
[[gnu::target("avx512f")]] double MultiplyAvx512() {
    return Multiply<64, 24>();
}
[[gnu::target("avx2")]] double MultiplyAvx2() {
    return Multiply<32, 12>();
}
#endif
double MultiplyBaseline() {
    return Multiply<16, 12>();
}

constexpr Kernel Kernels[] = {
#if defined(__x86_64__)
    {"avx512", MultiplyAvx512, 2 * 8 * 24},
    {"avx2", MultiplyAvx2, 2 * 4 * 12},
#endif
    {"baseline", MultiplyBaseline, 2 * 2 * 12},
};

/// The time of Steps steps on each of the cores at once.
void Peak(benchmark::State& state, const Kernel& kernel, int workers) {
    for (auto _ : state)
        RunTeam(workers, [&](Team&) { benchmark::DoNotOptimize(kernel.Run()); });
    state.SetItemsProcessed(state.iterations() * workers * Steps * kernel.OperationsOfAStep);
}

/// Reads a table of n x n doubles on all cores.
void Pass(benchmark::State& state, int n) {
    const Table<double> table(n - 1, n - 1);
    for (auto _ : state)
        RunRowWorkers(WorkersFor(std::ptrdiff_t{n} * n), n, [&](RowRange rows) {
            using Vector = VectorOf<16>::Unaligned;
            Vector sums[4]{};
            const double* from = table.row(rows.First);
            const std::ptrdiff_t count = (rows.Last - rows.First) * n;
            for (std::ptrdiff_t at = 0; at + 8 <= count; at += 8)
                for (int v = 0; v < 4; ++v)
                    sums[v] = sums[v] + *reinterpret_cast<const Vector*>(from + at + 2 * v);
            benchmark::DoNotOptimize(sums);
        });
    state.SetBytesProcessed(state.iterations() * n * n * static_cast<std::int64_t>(sizeof(double)));
}

const bool registered = [] {
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    for (const Kernel& kernel : Kernels)
        for (const auto& set : OfferedInstructionSets())
            if (set == kernel.Set)
                for (const int workers : {1, cores})
                    Register("peak/1/" + set + "/" + std::to_string(workers), Length::Short,
                             [&kernel, workers](benchmark::State& state) { Peak(state, kernel, workers); });
    for (const int n : {1068, 3085, 6000})
        Register("pass/" + std::to_string(n) + "/read/all", Length::Short,
                 [n](benchmark::State& state) { Pass(state, n); });
    return true;
}();

} // namespace
