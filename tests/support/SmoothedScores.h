#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// The score of an export's option ("poisson", "standard", "rossi") in long doubles, each written in another
/// form than the program's.
long double ScoreAnotherWay(const std::string& option, long double observed, long double expected);

/// The z-values of the Regions of the store at a bandwidth above 0, without the kernel's height, which the
/// scaling of a row to length 1 takes out again: with g the exponential alone, the sum of g(i, j) * score(j)
/// over the root of the sum of g(i, j)^2, in long doubles. Scores and results in Region order.
std::vector<double> SmoothedAnotherWay(const std::vector<long double>& scores, long double sigma);

} // namespace vastrel
