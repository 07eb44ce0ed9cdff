#pragma once

#include <bit>
#include <cstdint>

namespace vastrel {

/// A number from 0 to below 2^64 in fixed point: one word of 64 bits before the point and Words - 1 behind
/// it. A product, a quotient and a shift to the right are cut off below the last place, so that they lie less
/// than one unit of it under the exact value (a product less than two); all else is exact. Nothing looks for
/// overflow.
template <int Words>
struct WideFixed {
    static constexpr int FractionBits = 64 * (Words - 1);
    static constexpr int Bits = 64 * Words;

    std::uint64_t Word[Words] = {}; // the least significant one first

    static constexpr WideFixed Integer(std::uint64_t value) {
        WideFixed result;
        result.Word[Words - 1] = value;
        return result;
    }

    /// 2^-places.
    static constexpr WideFixed PowerOfHalf(int places) {
        WideFixed result;
        const int at = FractionBits - places;
        result.Word[at / 64] = std::uint64_t{1} << at % 64;
        return result;
    }

    template <int Fewer>
    constexpr WideFixed<Fewer> CutTo() const {
        WideFixed<Fewer> result;
        for (int i = 0; i < Fewer; ++i)
            result.Word[i] = Word[Words - Fewer + i];
        return result;
    }

    constexpr std::uint64_t IntegerPart() const { return Word[Words - 1]; }
    /// The first 64 bits behind the point.
    constexpr std::uint64_t FirstFraction() const { return Word[Words - 2]; }

    constexpr bool Bit(int at) const { return Word[at / 64] >> at % 64 & 1; }

    /// How many bits there are up to the highest one that is set; 0 for the number 0.
    constexpr int Length() const {
        for (int i = Words - 1; i >= 0; --i)
            if (Word[i] != 0) return 64 * i + 64 - std::countl_zero(Word[i]);
        return 0;
    }

    constexpr bool operator==(const WideFixed& other) const = default;
    constexpr bool operator<(const WideFixed& other) const {
        for (int i = Words - 1; i >= 0; --i)
            if (Word[i] != other.Word[i]) return Word[i] < other.Word[i];
        return false;
    }

    constexpr WideFixed operator+(const WideFixed& other) const {
        WideFixed result;
        UInt128 sum = 0;
        for (int i = 0; i < Words; ++i) {
            sum = (sum >> 64) + Word[i] + other.Word[i];
            result.Word[i] = static_cast<std::uint64_t>(sum);
        }
        return result;
    }

    constexpr WideFixed operator-(const WideFixed& other) const {
        WideFixed result;
        std::uint64_t borrow = 0;
        for (int i = 0; i < Words; ++i) {
            const UInt128 difference = static_cast<UInt128>(Word[i]) - other.Word[i] - borrow;
            result.Word[i] = static_cast<std::uint64_t>(difference);
            borrow = static_cast<std::uint64_t>(difference >> 64) & 1;
        }
        return result;
    }

    constexpr WideFixed operator*(const WideFixed& other) const {
        std::uint64_t product[2 * Words] = {};
        for (int i = 0; i < Words; ++i) {
            if (Word[i] == 0) continue;
            UInt128 sum = 0;
            for (int j = i + 2 < Words ? Words - 2 - i : 0; j < Words; ++j) {
                sum = static_cast<UInt128>(Word[i]) * other.Word[j] + product[i + j] + (sum >> 64);
                product[i + j] = static_cast<std::uint64_t>(sum);
            }
            product[i + Words] = static_cast<std::uint64_t>(sum >> 64);
        }
        WideFixed result;
        for (int i = 0; i < Words; ++i)
            result.Word[i] = product[Words - 1 + i];
        return result;
    }

    constexpr WideFixed operator*(std::uint64_t factor) const {
        WideFixed result;
        UInt128 sum = 0;
        for (int i = 0; i < Words; ++i) {
            sum = static_cast<UInt128>(Word[i]) * factor + (sum >> 64);
            result.Word[i] = static_cast<std::uint64_t>(sum);
        }
        return result;
    }

    constexpr WideFixed operator/(std::uint64_t divisor) const {
        WideFixed result;
        UInt128 rest = 0;
        for (int i = Words - 1; i >= 0; --i) {
            rest = rest << 64 | Word[i];
            result.Word[i] = static_cast<std::uint64_t>(rest / divisor);
            rest = rest % divisor;
        }
        return result;
    }

    /// Times 2^places, to the left or (below 0) to the right.
    constexpr WideFixed Shifted(int places) const {
        WideFixed result;
        const int by = places < 0 ? -places : places;
        const int words = by / 64, bits = by % 64;
        for (int i = 0; i < Words; ++i) {
            const int near = places < 0 ? i + words : i - words;
            const int far = places < 0 ? near + 1 : near - 1;
            const std::uint64_t a = WordOrZero(near), b = WordOrZero(far);
            result.Word[i] = bits == 0    ? a
                             : places < 0 ? a >> bits | b << (64 - bits)
                                          : a << bits | b >> (64 - bits);
        }
        return result;
    }

private:
    __extension__ using UInt128 = unsigned __int128;

    constexpr std::uint64_t WordOrZero(int at) const { return at < 0 || at >= Words ? 0 : Word[at]; }
};

} // namespace vastrel
