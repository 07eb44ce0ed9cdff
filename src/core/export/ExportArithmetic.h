#pragma once

namespace vastrel {

/// How a count's deviation from its expectation is measured.
enum class ExportOption {
    None, // not chosen: nothing is exported
    Poisson,
    Standard, // Freeman-Tukey
    Rossi,
};

/// The deviation of an observed from an expected count: the Pearson, Freeman-Tukey or Rossi score of the M
/// statistic. An expected count of 0 is run-time error 11 for the first and the last, also with an observed
/// count of 0. Other faults show in the floating-point flags.
double ExportScore(ExportOption option, double observed, double expected);

} // namespace vastrel
