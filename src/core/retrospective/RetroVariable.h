#pragma once

namespace vastrel {

/// The variable of a retrospective test.
enum class RetroVariable { Unadjusted, AdjustedPoisson, FreemanTukey, Rossi };

/// The score variables map the score statistic U, the others the M statistic.
constexpr bool MapsScore(RetroVariable variable) {
    return variable == RetroVariable::Unadjusted || variable == RetroVariable::AdjustedPoisson;
}

/// All but the unadjusted variable show a maximum M and its critical value.
constexpr bool HasM(RetroVariable variable) {
    return variable != RetroVariable::Unadjusted;
}

} // namespace vastrel
