// The exponentials of the kernel, beside those of the C library: N numbers as near Regions bring them (from
// -40 to 0) and as all pairs of a large dataset do (from -3000 to 0).
#include "Register.h"
#include "core/numeric/Exponentials.h"
#include "core/numeric/InstructionSet.h"

#include <cmath>
#include <random>
#include <vector>

using namespace vastrel;

namespace {

constexpr int Count = 4096;

void CLibrary(const std::vector<double>& x, std::vector<double>& result) {
    for (std::size_t i = 0; i < x.size(); ++i)
        result[i] = std::exp(x[i]);
}

void Ours(const std::vector<double>& x, std::vector<double>& result) {
    Exponentials(x.data(), static_cast<std::ptrdiff_t>(x.size()), result.data());
}

using Computation = void (*)(const std::vector<double>&, std::vector<double>&);

void RegisterExponentials(int range, const std::string& what, Computation compute, const std::string& set) {
    Register("exponentials/" + std::to_string(range) + "/" + what + "/1", Length::Short,
             [=](benchmark::State& state) {
                 std::mt19937 random(3);
                 std::uniform_real_distribution<double> uniform(-range, 0);
                 std::vector<double> x(Count), result(Count);
                 for (double& value : x)
                     value = uniform(random);
                 ForceInstructionSet(set);
                 for (auto _ : state) {
                     compute(x, result);
                     benchmark::DoNotOptimize(result.data());
                     benchmark::ClobberMemory();
                 }
                 state.SetItemsProcessed(state.iterations() * Count);
                 ForceInstructionSet("");
             });
}

const bool registered = [] {
    for (const int range : {40, 3000}) {
        RegisterExponentials(range, "C library", CLibrary, "");
        for (const auto& set : OfferedInstructionSets())
            RegisterExponentials(range, set, Ours, set);
    }
    return true;
}();

} // namespace
