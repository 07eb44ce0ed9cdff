// What the elementary functions read in tables, computed by the compiler in whole numbers: values at
// fractions with small denominators, and the factors of their series. Every entry lies less than 2^-318 from
// the exact value.
#pragma once

#include "core/numeric/WideFixed.h"

#include <array>
#include <cstddef>

namespace vastrel {

/// As wide as the tables are, and as wide as the functions ever compute.
using WidestFixed = WideFixed<6>;

namespace tables {

using Exacter = WideFixed<7>; // in which the tables are computed

template <std::size_t Count>
using Table = std::array<WidestFixed, Count>;

/// 1 / n!
inline constexpr auto InverseFactorials = [] {
    Table<34> table;
    Exacter entry = Exacter::Integer(1);
    for (std::size_t n = 0; n < table.size(); ++n) {
        if (n > 0) entry = entry / n;
        table[n] = entry.CutTo<6>();
    }
    return table;
}();

/// 1 / (2 n + 1)
inline constexpr auto OddReciprocals = [] {
    Table<35> table;
    for (std::size_t n = 0; n < table.size(); ++n)
        table[n] = (Exacter::Integer(1) / (2 * n + 1)).CutTo<6>();
    return table;
}();

/// e^(a / 128), beyond the logarithm of 2.
inline constexpr auto Exponentials = [] {
    Exacter step, term = Exacter::Integer(1);
    for (std::uint64_t n = 1; !(term == Exacter{}); ++n) {
        step = step + term;
        term = term / (128 * n);
    }
    Table<91> table;
    Exacter entry = Exacter::Integer(1);
    for (auto& to : table) {
        to = entry.CutTo<6>();
        entry = entry * step;
    }
    return table;
}();

/// ln(1 + a / 128); two neighbours differ by 2 artanh(1 / (2 (128 + a) - 1)).
inline constexpr auto Logarithms = [] {
    Table<129> table;
    Exacter entry;
    for (std::uint64_t a = 1; a < table.size(); ++a) {
        const std::uint64_t n = 2 * (128 + a) - 1;
        Exacter power = Exacter::Integer(2) / n;
        for (std::uint64_t odd = 1; !(power == Exacter{}); odd += 2, power = power / (n * n))
            entry = entry + power / odd;
        table[a] = entry.CutTo<6>();
    }
    return table;
}();
inline constexpr WidestFixed LogarithmOfTwo = Logarithms.back();

/// arctan(a / 32); two neighbours differ by arctan(32 / (1024 + a (a - 1))).
inline constexpr auto ArcTangents = [] {
    Table<33> table;
    Exacter entry;
    for (std::uint64_t a = 1; a < table.size(); ++a) {
        const std::uint64_t divisor = 1024 + a * (a - 1);
        Exacter power = Exacter::Integer(32) / divisor, sum;
        for (std::uint64_t odd = 1; !(power == Exacter{});
             odd += 2, power = power * 1024 / (divisor * divisor))
            sum = odd % 4 == 1 ? sum + power / odd : sum - power / odd;
        entry = entry + sum;
        table[a] = entry.CutTo<6>();
    }
    return table;
}();

} // namespace tables

} // namespace vastrel
