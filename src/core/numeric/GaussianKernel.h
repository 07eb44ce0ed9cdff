#pragma once

#include "core/workspace/Workspace.h"

namespace vastrel {

/// The nine-digit constant of every kernel, in the place of pi.
constexpr double NineDigitPi = 3.14159265;

/// What the kernel is made of: K(i, i) = 1 / (sigma * r), with r the root of NineDigitPi; 2 sigma^2 * area /
/// n for n Regions; and d^2 of two of them. Where they leave the range they overflow.
double KernelPeak(double sigma);
double KernelSpread(std::ptrdiff_t n, double area, double sigma);
double SquaredDistance(const RegionPoint& from, const RegionPoint& to);

/// Computes d^2 for every pair of the Regions at `at(1..n)`; leaves distances as they are that belong to
/// these very positions. After a fault in it the distances have to be dropped.
void TakeDistances(const Array1<RegionPoint>& at, std::ptrdiff_t n, PairDistances& distances);

/// The Gaussian kernel over the squared distances of n Regions: K(i, i) is the peak and K(i, j) = K(i, i) *
/// exp(-d^2 / spread). sigma is a multiple of the root of the mean Region area. No value is cut off. The rows
/// get the length 1, which is not theirs yet. The distances may be the kernel's own values, whose place it
/// takes. area = 0 is a division by zero, or an invalid operation where the distance is 0 too. A sigma whose
/// square is too large is an overflow, but not where a Region is alone.
void GaussianKernel(const Pairs& squaredDistances, double area, double sigma, KernelWeights& kernel);

/// G(i, j) / sqrt(p(i + 1) p(j + 1)) for the Gram matrix G of the row-normalised kernel; both tables have a
/// zero base. A share p of 0 is a division by zero, one below 0 an invalid operation.
void ScaleGramByShares(const Table<double>& gram, const Array1<double>& shares, std::ptrdiff_t n,
                       Table<double>& adjusted);

/// W(i, j) / sqrt(e(j)) for the row-normalised kernel W (1..n, 1..n). An expected count e of 0 is a division
/// by zero, one below 0 an invalid operation.
void ScaleColumnsByExpected(const Table<double>& weights, const Array1<double>& expected, std::ptrdiff_t n,
                            Table<double>& adjusted);

} // namespace vastrel
