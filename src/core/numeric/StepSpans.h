// Weights of distant Regions are tiny. What a step of a sum of products can add is told by the exponents of
// its factors, without a multiplication.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace vastrel {

/// What is known of some numbers: 2^Least <= |x| < 2^Most, zeros left out, and which signs there are. Where
/// there are none but zeros, or infinities and NaNs, the bounds lie beyond every power.
struct Span {
    short Least = Beyond, Most = -Beyond;
    bool Negative = false, Positive = false;
    static constexpr short Beyond = 10000;
};

/// The span of numbers of which the bits of the least magnitude that is not 0 and of the greatest one are
/// given, as whole numbers.
inline Span SpanOfBits(long long least, long long most, bool negative, bool positive) {
    if (most == 0) return {};
    constexpr int bias = 1023, special = 1024, digits = 52;
    const auto exponent = [](long long bits) { return static_cast<short>((bits >> digits) - bias); };
    const short lower = exponent(least), upper = exponent(most);
    return {lower == -bias ? static_cast<short>(-bias - digits + 1) : lower,
            upper == special ? Span::Beyond : static_cast<short>(upper + 1), negative, positive};
}

inline Span SpanOf(double number) {
    const auto bits = std::bit_cast<long long>(number);
    const long long size = bits & std::numeric_limits<long long>::max();
    const bool negative = bits<0, positive = bits> 0;
    return SpanOfBits(size, size, negative, positive);
}

/// Steps are told apart in groups, as many as a word has bits.
constexpr std::ptrdiff_t GroupSteps = 64;

/// Some steps of a group: bit k stands for step k.
using StepSet = std::uint64_t;

/// The spans of some steps taken together.
struct StepsSpan {
    Span Of;
    short LeastMost = Span::Beyond; // the least of the steps' upper bounds

    void Add(const StepsSpan& other) {
        Of.Least = std::min(Of.Least, other.Of.Least);
        Of.Most = std::max(Of.Most, other.Of.Most);
        Of.Negative |= other.Of.Negative;
        Of.Positive |= other.Of.Positive;
        LeastMost = std::min(LeastMost, other.LeastMost);
    }
};

/// The spans of a group of steps, and which of them have numbers of either sign.
struct GroupSpan {
    StepsSpan All;
    StepSet Negative = 0, Positive = 0;
};

/// The spans of the steps of a panel, filled up to whole groups with steps that hold only zeros.
struct PanelSpans {
    const short *Least, *Most;
    const GroupSpan* Groups;
    const StepsSpan& All;
};

/// The steps of a group for which a + b is above or below a limit.
StepSet StepsAbove(const short* a, const short* b, int limit);
StepSet StepsBelow(const short* a, const short* b, int limit);

} // namespace vastrel
