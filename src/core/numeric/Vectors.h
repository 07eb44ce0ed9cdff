#pragma once

#include <cstddef>

namespace vastrel {

/// Vectors of so many bytes.
template <int Bytes>
struct VectorOf {
    using Doubles [[gnu::vector_size(Bytes)]] = double;
    using Bits [[gnu::vector_size(Bytes)]] = long long;
    using Unaligned [[gnu::vector_size(Bytes), gnu::aligned(sizeof(double)), gnu::may_alias]] = double;
    using UnalignedBits [[gnu::vector_size(Bytes), gnu::aligned(sizeof(double)), gnu::may_alias]] = long long;
    static constexpr std::ptrdiff_t Lanes = Bytes / static_cast<std::ptrdiff_t>(sizeof(double));
};

/// to[i] = function(from[i]) for n numbers, some of them at once: the function takes a number as well as a
/// vector. `to` may be `from`.
template <typename Function>
void ForEachNumber(const double* from, std::ptrdiff_t n, double* to, Function function) {
    using Vector = VectorOf<16>::Unaligned;
    std::ptrdiff_t i = 0;
    for (; i + VectorOf<16>::Lanes <= n; i += VectorOf<16>::Lanes)
        *reinterpret_cast<Vector*>(to + i) = function(*reinterpret_cast<const Vector*>(from + i));
    for (; i < n; ++i)
        to[i] = function(from[i]);
}

} // namespace vastrel
