#pragma once

#include <optional>

namespace vastrel {

// The M statistic for one bandwidth: each Region's counts as an approximately normal score R, and M(i) as the
// sum of R(j) * WeightM(i, j). Each transform re-dimensions and fills its array of scores, LocalM,
// LocalMSorted, MapDrawM, MapClassM, DisplayClassValues and DisplayDrawValues; after an arithmetic fault they
// stand at zero.

/// DevPearson, (o - e) / sqrt(e). An expected count of 0 is a division by zero.
void MTransformPearson();

/// DevFreemanTukey, sqrt(o) + sqrt(o + 1) - sqrt(4e + 1). Accepts an expected count of 0.
/// M. F. Freeman, J. W. Tukey, Ann. Math. Statist. 21 (1950).
void MTransformFreemanTukey();

/// DevRossi, (o - 3e + 2 sqrt(o e)) / (2 sqrt(e)). An expected count of 0 is a division by zero.
/// G. Rossi, L. Lampugnani, M. Marchi, Statistics in Medicine 18 (1999).
void MTransformRossi();

/// The largest M(i), in a signed comparison. Sorts LocalMSorted; a second call is harmless.
double MaxLocalM();

/// The critical value M* for CurrentSigma, AlphaLevel and NumRegion, rounded to four decimals. Where its
/// logarithm or root has no value (a large sigma, few Regions) the message "Error!" is shown, at each call,
/// and M* is 0.
double MCritical();

/// The same without the message; no value where MCritical shows it.
std::optional<double> MCriticalValue();

} // namespace vastrel
