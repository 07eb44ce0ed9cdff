#include "validation/RunLengthEquation.h"

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace vastrel::validation {

namespace {

constexpr int NodeCount = 80;

struct Node {
    double At, Weight;
};

/// The value of the Legendre polynomial of degree NodeCount and its slope.
std::pair<double, double> Legendre(double x) {
    double previous = 1, value = x;
    for (int degree = 2; degree <= NodeCount; ++degree)
        previous = std::exchange(value, ((2 * degree - 1) * x * value - (degree - 1) * previous) / degree);
    return {value, NodeCount * (x * value - previous) / (x * x - 1)};
}

/// The Gauss-Legendre rule on 0 .. h.
std::vector<Node> Nodes(double h) {
    std::vector<Node> nodes;
    for (int i = 1; i <= NodeCount; ++i) {
        double x = std::cos(std::numbers::pi * (i - 0.25) / (NodeCount + 0.5));
        for (int step = 0; step < 20; ++step) {
            const auto [value, slope] = Legendre(x);
            x -= value / slope;
        }
        const double slope = Legendre(x).second;
        nodes.push_back({h / 2 * (1 + x), h / ((1 - x * x) * slope * slope)});
    }
    return nodes;
}

double Density(double z) {
    return std::exp(-z * z / 2) / std::sqrt(2 * std::numbers::pi);
}

double Distribution(double z) {
    return std::erfc(-z / std::numbers::sqrt2) / 2;
}

/// Solves a system of equations by elimination with the largest pivots of the columns.
std::vector<double> Solved(std::vector<std::vector<double>> a, std::vector<double> b) {
    const std::size_t n = b.size();
    for (std::size_t column = 0; column < n; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column + 1; row < n; ++row)
            if (std::abs(a[row][column]) > std::abs(a[pivot][column])) pivot = row;
        std::swap(a[pivot], a[column]);
        std::swap(b[pivot], b[column]);
        for (std::size_t row = column + 1; row < n; ++row) {
            const double factor = a[row][column] / a[column][column];
            for (std::size_t k = column; k < n; ++k)
                a[row][k] -= factor * a[column][k];
            b[row] -= factor * b[column];
        }
    }
    for (std::size_t row = n; row-- > 0;) {
        for (std::size_t k = row + 1; k < n; ++k)
            b[row] -= a[row][k] * b[k];
        b[row] /= a[row][row];
    }
    return b;
}

} // namespace

double AverageRunLength(double k, double h, double start, double mean) {
    // The first unknown is L(0), the others stand at the nodes.
    std::vector<Node> places = Nodes(h);
    places.insert(places.begin(), {0, 0});
    const std::size_t n = places.size();
    std::vector<std::vector<double>> system(n, std::vector<double>(n));
    const auto coefficient = [&](double u, std::size_t j) {
        const double density = places[j].Weight * Density(places[j].At + k - u - mean);
        return j == 0 ? Distribution(k - u - mean) : density;
    };
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j)
            system[i][j] = (i == j ? 1 : 0) - coefficient(places[i].At, j);
    const auto lengths = Solved(system, std::vector<double>(n, 1));
    double length = 1;
    for (std::size_t j = 0; j < n; ++j)
        length += lengths[j] * coefficient(start, j);
    return length;
}

double ThresholdFor(double k, double wanted) {
    // Far above the threshold looked for, the run lengths are too large to be told by the equation.
    constexpr double step = 0.5;
    double high = step;
    while (AverageRunLength(k, high) < wanted)
        high += step;
    double low = high - step;
    for (int i = 0; i < 25; ++i) {
        const double middle = (low + high) / 2;
        (AverageRunLength(k, middle) < wanted ? low : high) = middle;
    }
    return (low + high) / 2;
}

} // namespace vastrel::validation
