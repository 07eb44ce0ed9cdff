#include "core/numeric/ExponentialStep.h"

#include "core/numeric/WideRounding.h"

namespace vastrel {

namespace {

constexpr WidestFixed StepOfTable = tables::LogarithmOfTwo.Shifted(-7); // ln 2 / 128

constexpr double NearestDouble(const WidestFixed& value) {
    return value.Length() == 0 ? 0 : std::bit_cast<double>(NearestBits(value, 0));
}

/// The number down to 2^-bits.
constexpr WidestFixed CutOff(const WidestFixed& value, int bits) {
    const int others = WidestFixed::FractionBits - bits;
    return value.Shifted(-others).Shifted(others);
}

constexpr double Upper(const WidestFixed& value, int bits) {
    return NearestDouble(CutOff(value, bits));
}

constexpr double Lower(const WidestFixed& value, int bits) {
    return NearestDouble(value - CutOff(value, bits));
}

constexpr int BitsOfLnHigh = 41;

} // namespace

constinit const double LnHigh = Upper(StepOfTable, BitsOfLnHigh);
constinit const double LnLow = Lower(StepOfTable, BitsOfLnHigh);

constinit const std::array<PowerOfTwo, 128> PowersOfTwo = [] {
    constexpr WidestFixed ratio = WideExponential(StepOfTable, false).Magnitude;
    std::array<PowerOfTwo, 128> table{};
    WidestFixed power = WidestFixed::Integer(1);
    for (PowerOfTwo& entry : table) {
        entry = {Upper(power, 26), Lower(power, 26)};
        power = power * ratio;
    }
    return table;
}();

} // namespace vastrel
