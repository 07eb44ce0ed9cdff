#pragma once

#include "core/workspace/Workspace.h"

namespace vastrel {

// The rows of the Gaussian kernel, scaled to length 1. Sums along them are taken element by element, in
// ascending order, so that they equal those of plain loops in every bit.

/// Scales the rows of a kernel to Euclidean length 1: takes the lengths that they have.
void RowNormalise(KernelWeights& kernel);

/// Raises the overflows (6) that come before the first division by the study area: in the peak, the distance
/// of the first pair and the spread. The faults of the whole kernel, which are told at its end, do not show
/// which of them was the first.
void CheckFirstWeights(const Array1<RegionPoint>& at, std::ptrdiff_t n, double area, double sigma);

/// The row-normalised Gaussian kernel of the Regions at `at(1..n)`. Its faults are those of
/// CheckFirstWeights, TakeDistances, GaussianKernel and RowNormalise.
KernelWeights GaussianWeights(const Array1<RegionPoint>& at, std::ptrdiff_t n, double area, double sigma);

/// Writes the weights to elements (1..n, 1..n) of a table.
void PutWeights(const KernelWeights& kernel, Table<double>& weights);

/// sums(i) = the sum over j = 1..n of scores(j) * W(i, j) for each i = 1..n. Run-time error 9 where the
/// weights are not of n Regions or the scores of fewer. `sums` is none of the others.
void WeightedSums(const KernelWeights& kernel, const Array1<double>& scores, std::ptrdiff_t n,
                  Array1<double>& sums);

} // namespace vastrel
