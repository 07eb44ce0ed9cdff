#pragma once

#include "core/numeric/WideFunctions.h"

#include <algorithm>
#include <optional>

namespace vastrel {

/// The bits of the double nearest to value * 2^exponent (ties to even), also where it is subnormal; those of
/// the infinity from where that is nearest.
template <int Words>
constexpr std::uint64_t NearestBits(const WideFixed<Words>& value, int exponent) {
    constexpr int smallest = -1074; // of all doubles, as a power of two
    const int highest = value.Length() - 1;
    const int binade = highest - value.FractionBits + exponent;
    const int last = std::max(binade - 52, smallest);        // the power of two that the last bit stands for
    const int lastAt = last - exponent + value.FractionBits; // its place in `value`
    if (highest + 1 < lastAt) return 0;
    std::uint64_t kept =
        value.Shifted(lastAt > highest ? -value.Bits : value.FractionBits - lastAt).IntegerPart();
    // What is cut off decides: its first bit, and whether there is any other.
    if (lastAt > 0 && value.Bit(lastAt - 1)) {
        const WideFixed<Words> others = value.Shifted(value.Bits - lastAt + 1);
        if ((kept & 1) != 0 || others.Length() > 0) ++kept;
    }
    // The leading bit of a normal number counts one binade up.
    if (last == smallest) return kept;
    constexpr std::uint64_t infinity = std::uint64_t{0x7FF} << 52;
    return binade > 1023 ? infinity : (static_cast<std::uint64_t>(binade + 1022) << 52) + kept;
}

/// The same for a number that is known up to 2^-errorBits times 2^its exponent; nothing where its rounding is
/// in doubt.
template <int Words>
std::optional<std::uint64_t> NearestBitsIfSure(const WideNumber<Words>& number, int errorBits) {
    const auto error = WideFixed<Words>::PowerOfHalf(errorBits);
    if (number.Magnitude < error) return {};
    const std::uint64_t low = NearestBits(number.Magnitude - error, number.Exponent);
    const std::uint64_t high = NearestBits(number.Magnitude + error, number.Exponent);
    if (low != high) return {};
    return low;
}

} // namespace vastrel
