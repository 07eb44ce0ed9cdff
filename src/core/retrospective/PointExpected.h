#pragma once

namespace vastrel {

/// ExpRatio from observed and expected counts: each expected count over the observed total, which goes to
/// TotalObs.
void SharesOfExpected();

/// ExpCount and ExpRatio from cases and population: (T / P) * population and population / P, with the case
/// total T, which goes to TotalObs, and the population total P. The shapefile form takes the product first;
/// the last bits of the two are meant to differ.
void ExpectedFromPopulation();

} // namespace vastrel
