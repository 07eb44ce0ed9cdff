#include "validation/Counts.h"

#include "validation/RandomNumbers.h"
#include "validation/Workers.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vastrel::validation {

namespace {

double Sum(const Array1<double>& values) {
    double sum = 0;
    for (std::ptrdiff_t i = 1; i <= values.UpperBound(); ++i)
        sum += values(i);
    return sum;
}

using FillColumn = std::function<void(RandomNumbers& random, Table<double>& counts, std::ptrdiff_t column)>;

FillColumn MultinomialColumns(const Array1<double>& means) {
    const WeightedDraw draw({means.data() + 1, means.data() + 1 + means.UpperBound()});
    const long total = std::lround(Sum(means));
    return [draw, total](RandomNumbers& random, Table<double>& counts, std::ptrdiff_t column) {
        for (long one = 0; one < total; ++one)
            counts(static_cast<std::ptrdiff_t>(draw(random)) + 1, column) += 1;
    };
}

FillColumn PoissonColumns(const Array1<double>& means) {
    std::vector<PoissonDraw> draws;
    for (std::ptrdiff_t i = 1; i <= means.UpperBound(); ++i)
        draws.emplace_back(means(i));
    return [draws](RandomNumbers& random, Table<double>& counts, std::ptrdiff_t column) {
        for (std::size_t i = 0; i < draws.size(); ++i)
            counts(static_cast<std::ptrdiff_t>(i) + 1, column) = draws[i](random);
    };
}

} // namespace

const char* NameOf(CountModel model) {
    return model == CountModel::Multinomial ? "multinomial" : "poisson";
}

Array1<double> ExpectedCounts(const StudyMap& map, double average) {
    Array1<double> expected(map.Count());
    const double people = Sum(map.Population);
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i)
        expected(i) = average * static_cast<double>(map.Count()) / people * map.Population(i);
    return expected;
}

Array1<double> WithCluster(const Array1<double>& expected, const std::vector<std::ptrdiff_t>& disc,
                           double risk) {
    Array1<double> means = expected;
    for (const auto i : disc)
        means(i) *= risk;
    const double scale = Sum(expected) / Sum(means);
    for (std::ptrdiff_t i = 1; i <= means.UpperBound(); ++i)
        means(i) *= scale;
    return means;
}

std::vector<Table<double>> DrawCounts(const std::string& stream, CountModel model,
                                      const Array1<double>& means, long replications) {
    const FillColumn fill =
        model == CountModel::Multinomial ? MultinomialColumns(means) : PoissonColumns(means);
    std::vector<Table<double>> blocks(static_cast<std::size_t>((replications + BlockSize - 1) / BlockSize));
    RunParts(static_cast<long>(blocks.size()), [&](long block) {
        auto& counts = blocks[static_cast<std::size_t>(block)];
        RandomNumbers random(stream, static_cast<std::uint64_t>(block));
        const long columns = std::min(BlockSize, replications - block * BlockSize);
        counts.ReDim(means.UpperBound(), columns);
        for (long column = 1; column <= columns; ++column)
            fill(random, counts, column);
    });
    return blocks;
}

} // namespace vastrel::validation
