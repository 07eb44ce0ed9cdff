#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

namespace vastrel {

/// Arguments by chance, the same for the same seed on every machine: nothing but whole numbers, sums and
/// products is taken of the generator.
class Arguments {
public:
    explicit Arguments(std::uint64_t seed) : random_(seed) {}

    std::uint64_t Whole(std::uint64_t below) { return random_() % below; }

    double Between(double low, double high) {
        return low + (high - low) * (static_cast<double>(random_() >> 11) * 0x1p-53);
    }

    /// From 2^low to below 2^high, every binade as often as another.
    double OfBinades(int low, int high) {
        const double mantissa = 1 + static_cast<double>(random_() >> 12) * 0x1p-52;
        return std::ldexp(mantissa, low + static_cast<int>(Whole(static_cast<std::uint64_t>(high - low))));
    }

    /// Any double but infinities and NaNs.
    double Any() {
        for (;;) {
            const auto x = std::bit_cast<double>(random_());
            if (std::isfinite(x)) return x;
        }
    }

    double AnyPositive() { return std::fabs(Any()); }

private:
    std::mt19937_64 random_;
};

} // namespace vastrel
