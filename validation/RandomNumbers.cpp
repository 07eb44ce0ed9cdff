#include "validation/RandomNumbers.h"

#include "core/numeric/Elementary.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace vastrel::validation {

namespace {

std::uint64_t Mixed(std::uint64_t& state) {
    state += 0x9E3779B97F4A7C15;
    std::uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
}

/// The normal density, up to a factor, as layers of equal area: layer i reaches to Edge[i], and lies wholly
/// below the density up to Edge[i + 1]. The lowest layer holds the tail.
constexpr std::size_t LayerCount = 128;
constexpr double TailFrom = 3.442619855899;
constexpr double LayerArea = 9.91256303526217e-3;

double Bell(double x) {
    return Exponential(-x * x / 2);
}

struct Layers {
    std::array<double, LayerCount + 1> Edge{};

    Layers() {
        Edge[0] = LayerArea / Bell(TailFrom);
        Edge[1] = TailFrom;
        for (std::size_t i = 2; i < LayerCount; ++i)
            Edge[i] = std::sqrt(-2 * Logarithm(LayerArea / Edge[i - 1] + Bell(Edge[i - 1])));
    }
};

std::uint64_t Hashed(const std::string& text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

/// What is left of a Poisson distribution beyond this part of its highest probability is never drawn.
constexpr double Negligible = 1e-18;

double LowestCount(double mean) {
    double count = std::floor(mean), weight = 1;
    while (count > 0 && weight > Negligible)
        weight *= count-- / mean;
    return count;
}

/// The probabilities from the lowest count on, up to a factor.
std::vector<double> PoissonWeights(double mean) {
    const double mode = std::floor(mean), lowest = LowestCount(mean);
    std::vector<double> weights{1};
    // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): a whole number
    for (double count = mode; count > lowest; --count)
        weights.push_back(weights.back() * count / mean);
    std::reverse(weights.begin(), weights.end());
    for (double count = mode + 1; weights.back() > Negligible; ++count)
        weights.push_back(weights.back() * mean / count);
    return weights;
}

} // namespace

RandomNumbers::RandomNumbers(const std::string& cell, std::uint64_t block) {
    std::uint64_t seed = Hashed(cell);
    seed ^= Mixed(block);
    for (auto& word : state_)
        word = Mixed(seed);
}

std::uint64_t RandomNumbers::Bits() {
    auto& s = state_;
    const std::uint64_t result = std::rotl(s[0] + s[3], 23) + s[0];
    const std::uint64_t t = s[1] << 17;
    s[2] ^= s[0];
    s[3] ^= s[1];
    s[1] ^= s[2];
    s[0] ^= s[3];
    s[2] ^= t;
    s[3] = std::rotl(s[3], 45);
    return result;
}

double RandomNumbers::Uniform() {
    return static_cast<double>(Bits() >> 11) * 0x1p-53;
}

double RandomNumbers::Tail() {
    double x = 0, y = 0;
    do {
        x = Logarithm(1 - Uniform()) / TailFrom;
        y = Logarithm(1 - Uniform());
    } while (-2 * y < x * x);
    return TailFrom - x;
}

double RandomNumbers::Normal() {
    static const Layers layers;
    while (true) {
        const std::uint64_t bits = Bits();
        const double u = 2 * (static_cast<double>(bits >> 11) * 0x1p-53) - 1;
        const std::size_t i = bits % LayerCount;
        const double x = u * layers.Edge[i];
        if (std::abs(x) < layers.Edge[i + 1]) return x;
        if (i == 0) return u < 0 ? -Tail() : Tail();
        const double outer = Bell(layers.Edge[i]), inner = Bell(layers.Edge[i + 1]);
        if (outer + Uniform() * (inner - outer) < Bell(x)) return x;
    }
}

WeightedDraw::WeightedDraw(const std::vector<double>& weights) {
    double total = 0, sum = 0;
    for (const double weight : weights)
        total += weight;
    for (const double weight : weights) {
        sum += weight;
        cumulative_.push_back(sum / total);
    }
    const std::size_t n = weights.size();
    for (std::size_t part = 0, at = 0; part < n; ++part) {
        while (at + 1 < n && cumulative_[at] <= static_cast<double>(part) / static_cast<double>(n))
            ++at;
        guide_.push_back(at);
    }
}

std::size_t WeightedDraw::operator()(RandomNumbers& random) const {
    const double u = random.Uniform();
    std::size_t at = guide_[static_cast<std::size_t>(u * static_cast<double>(guide_.size()))];
    while (at + 1 < cumulative_.size() && cumulative_[at] <= u)
        ++at;
    return at;
}

PoissonDraw::PoissonDraw(double mean) : lowest_(LowestCount(mean)), draw_(PoissonWeights(mean)) {}

} // namespace vastrel::validation
