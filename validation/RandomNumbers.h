#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vastrel::validation {

/// The stream of random numbers of one block of a cell. The cell's name and the block's number are its seed,
/// so that a study gives the same numbers in any order, with any number of workers, and when it goes on
/// later. D. Blackman, S. Vigna, Scrambled linear pseudorandom number generators (2021): xoshiro256++.
class RandomNumbers {
public:
    RandomNumbers(const std::string& cell, std::uint64_t block);

    std::uint64_t Bits();

    /// At least 0 and below 1.
    double Uniform();

    /// Standard normal. J. A. Doornik, An improved ziggurat method to generate normal random samples (2005).
    double Normal();

private:
    double Tail();

    std::array<std::uint64_t, 4> state_{};
};

/// Draws from 0 .. n - 1 with given weights (not negative, not all 0), by the inverse of the distribution
/// function.
class WeightedDraw {
public:
    explicit WeightedDraw(const std::vector<double>& weights);
    std::size_t operator()(RandomNumbers& random) const;

private:
    std::vector<double> cumulative_; // up to and with each, of a sum of 1
    std::vector<std::size_t> guide_; // where the search for a part of [0, 1) begins
};

/// Draws from the Poisson distribution of a mean above 0.
class PoissonDraw {
public:
    explicit PoissonDraw(double mean);
    double operator()(RandomNumbers& random) const { return lowest_ + static_cast<double>(draw_(random)); }

private:
    double lowest_;
    WeightedDraw draw_;
};

} // namespace vastrel::validation
