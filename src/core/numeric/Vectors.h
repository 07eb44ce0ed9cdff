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

} // namespace vastrel
