#pragma once

#include "core/numeric/DenseProduct.h"
#include "support/ForcedMachine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cstddef>
#include <cstring>
#include <functional>
#include <vector>

namespace vastrel {

inline constexpr double Untouched = 12345.678;

/// A matrix inside a larger block, as the tables of the store hold theirs: one row and column in front, some
/// more behind.
struct Matrix {
    Matrix(std::ptrdiff_t rows, std::ptrdiff_t columns)
        : Rows(rows), Columns(columns), Stride(columns + 3),
          Block(static_cast<size_t>((rows + 2) * Stride), Untouched) {}
    Matrix(std::ptrdiff_t rows, std::ptrdiff_t columns, std::function<double()> draw)
        : Matrix(rows, columns) {
        for (std::ptrdiff_t i = 0; i < rows; ++i)
            std::generate_n(Data() + i * Stride, columns, std::ref(draw));
    }

    double* Data() { return Block.data() + Stride + 1; }
    MatrixView View() const { return {Block.data() + Stride + 1, Rows, Columns, Stride}; }

    /// Every bit of the block, the surroundings of the matrix included.
    bool SameBits(const Matrix& other) const {
        return Block.size() == other.Block.size() &&
               std::memcmp(Block.data(), other.Block.data(), Block.size() * sizeof(double)) == 0;
    }

    std::ptrdiff_t Rows, Columns, Stride;
    std::vector<double> Block;
};

struct Outcome {
    Matrix Result;
    int Flags; // those of faults
};

inline Outcome Computed(std::ptrdiff_t rows, std::ptrdiff_t columns,
                        const std::function<void(double*, std::ptrdiff_t)>& compute) {
    Outcome outcome{Matrix(rows, columns), 0};
    std::feclearexcept(FE_ALL_EXCEPT);
    compute(outcome.Result.Data(), outcome.Result.Stride);
    outcome.Flags = std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW);
    std::feclearexcept(FE_ALL_EXCEPT);
    return outcome;
}

/// The plain outcome against that of the product on every machine.
inline void ExpectSameOutcome(const Outcome& plain, const std::function<void(double*, std::ptrdiff_t)>& fast,
                              const std::vector<Machine>& machines = Machines()) {
    const auto expectSame = [&] {
        const Outcome product = Computed(plain.Result.Rows, plain.Result.Columns, fast);
        EXPECT_TRUE(product.Result.SameBits(plain.Result));
        EXPECT_EQ(product.Flags, plain.Flags);
    };
    OnEveryMachine(expectSame, machines);
}

} // namespace vastrel
